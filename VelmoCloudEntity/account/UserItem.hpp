#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace VelmoCloudEntity {

/// The account of a user: identity, bound accounts, membership, profile, and the fields of a login
/// or registration.
///
/// To send a record, create it with the labels of the request. TelCode holds the verification code
/// by phone or by e-mail.
class UserItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(UserItem, PerchAppLibrary::BaseEntity);

    /// Token of the SMS verification: any JSON value; a number beyond 64 bits or 17 digits becomes
    /// the nearest double. `setSms_token("abc")` stores a text, which
    /// `sms_token().as<std::string>()` reads.
    PERCH_PROPERTY_SET_BY(PerchAppLibrary::JSON, sms_token, setSms_token,
                          PerchAppLibrary::JSON::emptyString());
    /// Phone number.
    PERCH_PROPERTY(std::string, Tel);
    /// Remaining membership, in days.
    PERCH_PROPERTY(std::int64_t, MemberLimitDays);
    /// State of the membership, a code of the service.
    PERCH_PROPERTY(std::int64_t, MembershipStatus);
    /// A phone number is bound.
    PERCH_PROPERTY(bool, IsTelBinded);
    /// Verification code of the request, by phone or by e-mail.
    PERCH_PROPERTY(std::string, TelCode);
    /// E-mail address.
    PERCH_PROPERTY(std::string, Email);
    /// An e-mail address is bound.
    PERCH_PROPERTY(bool, IsEmailBinded);
    /// Open id of the QQ account.
    PERCH_PROPERTY(std::string, QqOpenId);
    /// A QQ account is bound.
    PERCH_PROPERTY(bool, IsQqBinded);
    /// Open id of the WeChat account.
    PERCH_PROPERTY(std::string, WeChatOpenId);
    /// Union id of the WeChat account.
    PERCH_PROPERTY(std::string, WeChatUnionId);
    /// A WeChat account is bound.
    PERCH_PROPERTY(bool, IsWeChatBinded);
    /// Open id of the Zbj account.
    PERCH_PROPERTY(std::string, ZbjOpenId);
    /// A Zbj account is bound.
    PERCH_PROPERTY(bool, IsZbjBinded);
    /// User id of the Ali account.
    PERCH_PROPERTY(std::string, AliUserId);
    /// Password of a login or registration.
    PERCH_PROPERTY(std::string, Pwd);
    /// User id at the bound QQ or WeChat account.
    PERCH_PROPERTY(std::string, Uid);
    /// Name of the user, for display.
    PERCH_PROPERTY(std::string, Name);
    /// City.
    PERCH_PROPERTY(std::string, City);
    /// Profession.
    PERCH_PROPERTY(std::string, Career);
    /// Address of the user's photo.
    PERCH_PROPERTY(std::string, PhotoUrl);
    /// File name of the photo.
    PERCH_PROPERTY(std::string, PhotoFileName);
    /// The photo, as Base64 text.
    PERCH_PROPERTY(std::string, PhotoBase64String);
    /// Address of the page with the user's work.
    PERCH_PROPERTY(std::string, WorkUrl);
    /// Platform of the client. 1 by default.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// Version of the client that sends the request.
    PERCH_PROPERTY(std::string, ClientVersion);
    /// OEM label of the client.
    PERCH_PROPERTY(std::string, ClientOemTag);
    /// Serial number of the machine's disk.
    PERCH_PROPERTY(std::string, Disksn);
    /// Address of the advertising space for this user.
    PERCH_PROPERTY(std::string, AdSpaceUrl);
    /// Addresses sent by the service.
    PERCH_PROPERTY_SET_BY(std::vector<std::string>, uriList, setUriList);
    /// The user is an advanced user.
    PERCH_PROPERTY(bool, IsAdvanced);
    /// The client logs in when it starts.
    PERCH_PROPERTY(bool, AutoLogin);
    /// The user is a member.
    PERCH_PROPERTY(bool, IsMember);
    /// End of the membership, as sent.
    PERCH_PROPERTY(std::string, MemberLimitTimeStamp);
    /// The user is a partner.
    PERCH_PROPERTY(bool, IsPartner);

    /// All stored properties, the base's first.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// Labels of the requests. Each label sets the property with its name; `code` sets TelCode.
    PERCH_LABELS(GuidLabels, (guid, Guid));
    PERCH_LABELS(TelLabels, (tel, Tel));
    PERCH_LABELS(GuidTelLabels, (guid, Guid), (tel, Tel));
    PERCH_LABELS(GuidEmailLabels, (guid, Guid), (email, Email));
    PERCH_LABELS(TelRegistrationLabels, (guid, Guid), (tel, Tel), (telCode, TelCode), (pwd, Pwd));
    PERCH_LABELS(EmailRegistrationLabels, (guid, Guid), (email, Email), (code, TelCode),
                 (pwd, Pwd));
    PERCH_LABELS(ClientLabels, (guid, Guid), (clientVersion, ClientVersion),
                 (clientOemTag, ClientOemTag), (disksn, Disksn));
    PERCH_LABELS(OemLabels, (guid, Guid), (clientOemTag, ClientOemTag));
    PERCH_LABELS(QqLabels, (guid, Guid), (qqOpenId, QqOpenId), (uid, Uid), (photoUrl, PhotoUrl));
    PERCH_LABELS(WeChatLabels, (guid, Guid), (weChatOpenId, WeChatOpenId),
                 (weChatUnionId, WeChatUnionId), (uid, Uid), (photoUrl, PhotoUrl));
    PERCH_LABELS(TelLoginLabels, (tel, Tel), (pwd, Pwd), (clientVersion, ClientVersion),
                 (clientOemTag, ClientOemTag), (disksn, Disksn));
    PERCH_LABELS(TelCodeLabels, (tel, Tel), (telCode, TelCode), (pwd, Pwd),
                 (clientVersion, ClientVersion), (clientOemTag, ClientOemTag));
    PERCH_LABELS(EmailLoginLabels, (email, Email), (pwd, Pwd), (clientVersion, ClientVersion),
                 (clientOemTag, ClientOemTag), (disksn, Disksn));
    PERCH_LABELS(EmailLabels, (email, Email), (pwd, Pwd), (clientVersion, ClientVersion),
                 (clientOemTag, ClientOemTag));

    /// Fills the record as setValue(json, Included) does, which it calls with the keys Fonts,
    /// Activates, Favorites, Systems and Personals.
    void setValue(const PerchAppLibrary::JSON& json) override;

    /// Calls the mapping without the keys Fonts, Activates, Favorites, Systems and Personals, under
    /// which a reply holds lists of the user's fonts: these belong to the user-font maps. Ignores
    /// `included`; a subclass that overrides the function may use it.
    virtual void setValue(const PerchAppLibrary::JSON& json, PerchAppLibrary::Included included);

    /// Returns the properties with these names, each once. Throws UndefinedKeyError for a name of
    /// no property.
    virtual PerchAppLibrary::Dictionary getDict(const std::vector<std::string>& names) const;
};

} // namespace VelmoCloudEntity
