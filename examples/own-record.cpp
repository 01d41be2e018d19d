// Records of a client: a font with one more property and an override, which every query calls, and
// a record with an array of such fonts.
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <iostream>

using namespace VelmoCloudEntity;
using PerchAppLibrary::BaseEntity;

/// A font that the user can rate.
class RatedFont : public FontItem {
    PERCH_RECORD(RatedFont, FontItem);

    /// Stars from the user, 0 to 5. Read from the key "Stars" and exported under it.
    PERCH_PROPERTY(std::int64_t, Stars);

    PERCH_RECORD_END;

public:
    /// A font with five stars is a favourite, too.
    bool IsFavorited() const override { return Stars() == 5 || FontItem::IsFavorited(); }
};
PERCH_RECORD_SCHEMA(RatedFont);

/// A named list of rated fonts.
class Shelf : public BaseEntity {
    PERCH_RECORD(Shelf, BaseEntity);

    /// Name of the shelf.
    PERCH_PROPERTY(std::string, Name);
    /// One RatedFont for each element of the array under the key "Fonts".
    PERCH_PROPERTY(Records<RatedFont>, Fonts);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Shelf);

int main() {
    const auto font = RatedFont::parse(R"({"Id": 7, "ProductName": "Kai", "Stars": 5})");
    std::cout << FontList::getFavoritedFont({font}).size() << " favourite\n"
              << PerchAppLibrary::toText(font->Dict()) << '\n';

    const auto shelf = Shelf::parse(R"({"Name": "Best", "Fonts": [{"Stars": 4}, {"Stars": 5}]})");
    std::cout << shelf->Name() << ": " << shelf->Fonts().size() << " fonts\n";
}
