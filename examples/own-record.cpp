// A client's own records: a font with a property more, whose overrides every query honours, and a
// record that holds an array of such fonts.
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <iostream>

using namespace VelmoCloudEntity;
using PerchAppLibrary::BaseEntity;

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

class Shelf : public BaseEntity {
    PERCH_RECORD(Shelf, BaseEntity);

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
