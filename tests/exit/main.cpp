// Uses records at the end of the process, when the library's own static objects could be gone: a
// static object of a client is made first, so it is destroyed last.
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

/// Everything that reads static objects, as one text.
std::string use(const FontList& fonts) {
    const FontList read = FontList::parse(R"([{"Id":2,"ProductName":"宋体 é","Token":"t"}])");
    const auto user = UserItem::parse(R"({"Guid":"u","Token":[18446744073709551616]})");
    const auto found = FontList::getSearchResultFont(fonts.List(), "É").second;
    return FontItem::getFontArrayText(fonts.List()) + toText(read.List()[0]->properties()) +
           toText(fonts.List()[0]->Dict()) + toText(user->Dict()) + fonts.List()[0]->OemTag() +
           toText(FontUploadItem::create(JSON::parse("{}"))->Dict()) +
           std::to_string(found.size()) + toText(toValue(JSON::emptyString()));
}

struct Client {
    FontList fonts;
    std::string expected;

    ~Client() {
        if (use(fonts) == expected)
            return;
        std::puts("FAILED: records differ at the end of the process");
        std::_Exit(1);
    }
};

Client client; // destroyed after all that main() makes

} // namespace

int main() {
    client.fonts = FontList::parse(R"([{"Id":1,"ProductName":"é"}])");
    client.expected = use(client.fonts);
    if (client.expected.find("宋体") == std::string::npos)
        return 1;
}
