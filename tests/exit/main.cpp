// Uses records at the end of the process, when the library's own static objects could be gone: a
// static object of a client is made first, so it is destroyed last.
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

/// Everything that reads static objects, as one text.
std::string use() {
    const FontList fonts = FontList::parse(R"([{"Id":2,"ProductName":"宋体 é","Token":"t"}])");
    const auto user = UserItem::parse(R"({"Guid":"u","Token":[18446744073709551616]})");
    return FontItem::getFontArrayText(fonts.List()) + toText(fonts[0]->Dict()) +
           fonts[0]->OemTag() + toText(user->Dict()) + toText(toValue(JSON::emptyString())) +
           std::to_string(FontList::getSearchResultFont(fonts.List(), "É").second.size());
}

struct Client {
    std::string expected;

    ~Client() {
        if (use() == expected)
            return;
        std::puts("FAILED: records differ at the end of the process");
        std::_Exit(1);
    }
};

Client client; // destroyed after all that main() makes

} // namespace

int main() { client.expected = use(); }
