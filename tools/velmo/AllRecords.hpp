#pragma once

#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/PhoneNumberPrefixList.hpp>
#include <VelmoCloudEntity/account/SmsTokenItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontCollectionList.hpp>
#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchList.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>
#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>
#include <VelmoCloudEntity/entity/UrlList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/record/PropertyType.hpp>

namespace velmo {

/// The classes of records that the library has.
using AllRecords = PerchAppLibrary::TypeList<
    VelmoCloudEntity::ClientOperaItem, VelmoCloudEntity::ClientStartupNoticeItem,
    VelmoCloudEntity::ClientVersionItem, VelmoCloudEntity::ConfigItem, VelmoCloudEntity::EsUserItem,
    VelmoCloudEntity::FontApplyItem, VelmoCloudEntity::FontCollectionItem,
    VelmoCloudEntity::FontImageItem, VelmoCloudEntity::FontItem, VelmoCloudEntity::FontSearchItem,
    VelmoCloudEntity::FontTagItem, VelmoCloudEntity::FontUploadItem,
    VelmoCloudEntity::PhoneNumberPrefixItem, VelmoCloudEntity::SmsTokenItem,
    VelmoCloudEntity::UrlItem, VelmoCloudEntity::UserFontActivateMapItem,
    VelmoCloudEntity::UserFontFavoriteMapItem, VelmoCloudEntity::UserFontGroupMapItem,
    VelmoCloudEntity::UserItem, VelmoCloudEntity::WebFontItem, VelmoCloudEntity::ZRFontEffectEntity,
    VelmoCloudEntity::ZRMessageBubbleItem>;

} // namespace velmo
