// An error reply of the service, shown in both languages of the client.
//
//     $ error-reply samples/error-reply.json
//     005001: 登录过期
//     005001: The user login has expired.
//     $ echo '{"Exception":true,"ExceptionCode":"009001","ExceptionMessage":"维护中"}' > new.json
//     $ error-reply new.json
//     009001: 维护中
//     009001: 维护中
//     $ error-reply samples/font-list.json
//     The reply reports no error.
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <fstream>
#include <iostream>
#include <stdexcept>

using PerchAppLibrary::BaseEntity;
using PerchAppLibrary::JSON;
using VelmoCloudEntity::ExceptionItem;

/// Returns the message for the error in a language, "Ch" or "En". For a code without a message in
/// the table, returns the message that the service sent.
std::string messageOf(const BaseEntity& reply, const std::string& language) {
    static const ExceptionItem errors;
    const auto known = errors.Dict().find(reply.ExceptionCode());
    if (known == errors.Dict().end() || known->second->msgDict().at(language).empty())
        return reply.ExceptionMessage();
    return known->second->msgDict().at(language);
}

int main(int count, char** arguments) try {
    const std::string path = count > 1 ? arguments[1] : "samples/error-reply.json";
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    // Every record can report an error, so this works for a reply of any type.
    BaseEntity reply;
    reply.setValue(JSON::parse(std::string(std::istreambuf_iterator<char>(file), {})));
    if (!reply.Exception()) {
        std::cout << "The reply reports no error.\n";
        return 0;
    }
    for (const char* const language : {"Ch", "En"})
        std::cout << reply.ExceptionCode() << ": " << messageOf(reply, language) << '\n';
} catch (const std::exception& error) { // JSON::ParseError, too
    std::cerr << error.what() << '\n';
    return 1;
}
