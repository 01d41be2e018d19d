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
#include <VelmoCloudEntity/entity/ServiceError.hpp>

#include <fstream>
#include <iostream>
#include <stdexcept>

using PerchAppLibrary::JSON;

int main(int count, char** arguments) try {
    const std::string path = count > 1 ? arguments[1] : "samples/error-reply.json";
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    const JSON reply = JSON::parse(std::string(std::istreambuf_iterator<char>(file), {}));
    const auto error = VelmoCloudEntity::serviceError(reply);
    if (!error) {
        std::cout << "The reply reports no error.\n";
        return 0;
    }
    for (const char* const language : {"Ch", "En"})
        std::cout << error->code << ": " << error->text(language) << '\n';
} catch (const std::exception& error) { // JSON::ParseError, too
    std::cerr << error.what() << '\n';
    return 1;
}
