// The body of a login request, from what the user has typed. The account is a phone number or an
// e-mail address.
//
//     $ login-request 13800000000 secret
//     {"Tel":"13800000000","Pwd":"secret","ClientVersion":"1.0.0","ClientOemTag":"","Disksn":""}
//     $ login-request mei@example.com pw
//     {"Email":"mei@example.com","Pwd":"pw","ClientVersion":"1.0.0","ClientOemTag":"","Disksn":""}
//     $ login-request 13800000000 ''
//     Enter an account and a password.
//     [2]
#include <VelmoCloudEntity/account/UserItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <iostream>

using VelmoCloudEntity::UserItem;

/// Returns the record of a login. Its labels say which login it is, so the compiler rejects a call
/// that leaves out, misspells or swaps one.
std::shared_ptr<UserItem> loginRecord(const std::string& account, const std::string& password) {
    if (account.find('@') != std::string::npos)
        return UserItem::create({.email = account,
                                 .pwd = password,
                                 .clientVersion = "1.0.0",
                                 .clientOemTag = "",
                                 .disksn = ""});
    return UserItem::create({.tel = account,
                             .pwd = password,
                             .clientVersion = "1.0.0",
                             .clientOemTag = "",
                             .disksn = ""});
}

/// Returns the text of the request: the properties that the service needs for a login. Dict() would
/// have all properties of the record.
std::string requestBody(const UserItem& user) {
    return PerchAppLibrary::toText(user.getDict({user.Email().empty() ? "Tel" : "Email", "Pwd",
                                                 "ClientVersion", "ClientOemTag", "Disksn"}));
}

int main(int count, char** arguments) try {
    const std::string account = count > 1 ? arguments[1] : "";
    const std::string password = count > 2 ? arguments[2] : "";
    if (account.empty() || password.empty()) {
        std::cerr << "Enter an account and a password.\n";
        return 2;
    }
    std::cout << requestBody(*loginRecord(account, password)) << '\n';
} catch (const std::exception& error) { // such as UndefinedKeyError, for a misspelt name
    std::cerr << error.what() << '\n';
    return 2;
}
