#pragma once

#include <VelmoCloudEntity/account/PhoneNumberPrefixItem.hpp>
#include <VelmoCloudEntity/entity/LowercaseRecordList.hpp>

namespace VelmoCloudEntity {

/// The dialling prefixes that the service offers.
class PhoneNumberPrefixList
    : public LowercaseRecordList<PhoneNumberPrefixList, PhoneNumberPrefixItem> {
public:
    using LowercaseRecordList::LowercaseRecordList;
    static constexpr auto parsing = Parsing::direct;
};

} // namespace VelmoCloudEntity
