#pragma once

#include <VelmoCloudEntity/account/PhoneNumberPrefixItem.hpp>
#include <VelmoCloudEntity/entity/UncapitalizedRecordList.hpp>

namespace VelmoCloudEntity {

/// The dialling prefixes that the service offers.
class PhoneNumberPrefixList : public UncapitalizedRecordList<PhoneNumberPrefixItem> {
public:
    using UncapitalizedRecordList::UncapitalizedRecordList;
};

} // namespace VelmoCloudEntity
