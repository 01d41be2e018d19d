// A client's own kind of font: it adds a property, and overrides one so that every query sees the client's answer.
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <iostream>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

class RatedFont : public FontItem {
    PERCH_RECORD(RatedFont, FontItem);

    /// Stars given by the user, 0 to 5; filled from the key "Stars", exported under it.
    PERCH_PROPERTY(std::int64_t, Stars);

    PERCH_RECORD_END;

public:
    /// A font with all its stars counts as a favourite.
    bool IsFavorited() const override { return Stars() == 5 || FontItem::IsFavorited(); }
};
PERCH_RECORD_SCHEMA(RatedFont);

int main() {
    const auto font = RatedFont::create(JSON::parse(R"({"Id": 7, "ProductName": "Kai", "Stars": 5})"));
    std::cout << FontList::getFavoritedFont({font}).size() << " favourite\n"
              << PerchAppLibrary::toText(font->Dict()) << '\n';
}
