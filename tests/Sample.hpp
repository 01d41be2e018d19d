#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/JSON.hpp>

#include <VelmoCloudEntity/entity/RecordList.hpp>
#include <VelmoCloudEntity/entity/Records.hpp>

/// Properties of each type, with defaults that no document has.
class Sample : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(Sample, BaseEntity);

    PERCH_PROPERTY(std::int64_t, Int, -7);
    PERCH_PROPERTY(bool, On, true);
    PERCH_PROPERTY(PerchAppLibrary::Near<bool>, Flag);
    PERCH_PROPERTY(float, Float, -7.5F);
    PERCH_PROPERTY(std::string, String, "kept");
    PERCH_PROPERTY(PerchAppLibrary::Rare<std::string>, Sparse);
    PERCH_PROPERTY(double, Double, -7.5);
    PERCH_PROPERTY(std::optional<std::string>, Optional, "kept");
    PERCH_PROPERTY(std::optional<std::int64_t>, OptionalInt, -7);
    PERCH_PROPERTY(std::optional<double>, OptionalDouble, -7.5);
    PERCH_PROPERTY(std::optional<bool>, OptionalBool, true);
    PERCH_PROPERTY(std::vector<std::int64_t>, Ints, {-7, -7});
    PERCH_PROPERTY(std::vector<std::string>, Strings, {"kept"});
    PERCH_PROPERTY(PerchAppLibrary::JSON, Any);
    PERCH_PROPERTY(VelmoCloudEntity::Records<Sample>, Samples);
    PERCH_PROPERTY(std::shared_ptr<Sample>, Single);
    PERCH_CONSTANT(std::int64_t, Constant, 7);

    PERCH_RECORD_END;
};

struct SampleList : VelmoCloudEntity::RecordList<SampleList, Sample> {
    using RecordList::RecordList;
    static constexpr auto parsing = VelmoCloudEntity::Parsing::direct;
};
