#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>

/// Filling from a parsed document: RecordFiller::map(), fill() and fillArray().
namespace PerchAppLibrary {

class BaseEntity;
struct RecordsAccess;

void mapRecord(BaseEntity& record, const JSON& json, const Excluded& excluded);
void fillRecord(BaseEntity& record, const JSON& json, const Excluded& excluded);
void fillArray(const RecordsAccess& access, BaseEntity& record, const JSON& json);

} // namespace PerchAppLibrary
