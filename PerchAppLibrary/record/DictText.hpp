#pragma once

#include <PerchAppLibrary/record/KeyList.hpp>

#include <string>
#include <vector>

namespace PerchAppLibrary {

class BaseEntity;
class RecordSchema;
struct Property;

/// Writes the reflective Dicts of one class of records as JSON text without making them, which costs several times as much as
/// the text does. For the sources of records.
class DictText {
public:
    /// Ends the process (fatalError) when an excluded name is not that of a stored property.
    DictText(const RecordSchema& schema, const Excluded& excluded);

    /// Appends the members, as in `"Id":7,"Name":"x"`, that the Dict with these exclusions has. Requires a record of very
    /// this class, of which no accessor is overridden.
    void append(std::string& text, const BaseEntity& record) const;

private:
    struct Member {
        std::string key; // quoted, between a comma and a colon
        const Property* property;
    };

    std::vector<Member> m_members;
};

} // namespace PerchAppLibrary
