// Records of a client: a font with one more property, a nested array and an override, which every
// query calls, and a record with an array of such fonts.
//
//     $ own-record
//     Best
//     Kai: 5 stars
//         Mei: Calm
//     Song: 4 stars
//     1 favourite
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <iostream>

using namespace VelmoCloudEntity;
using PerchAppLibrary::BaseEntity;

/// What a user says about a font.
class Review : public BaseEntity {
    PERCH_RECORD(Review, BaseEntity);

    PERCH_PROPERTY(std::string, Author);
    PERCH_PROPERTY(std::string, Text);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Review);

/// A font that users can rate.
class RatedFont : public FontItem {
    PERCH_RECORD(RatedFont, FontItem);

    /// Stars from the user, 0 to 5. Read from the key "Stars" and exported under it.
    PERCH_PROPERTY(std::int64_t, Stars);
    /// One Review for each element of the array under the key "Reviews".
    PERCH_PROPERTY(Records<Review>, Reviews);

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
    const auto shelf = Shelf::parse(R"({"Name": "Best", "Fonts": [
        {"ProductName": "Kai", "Stars": 5, "Reviews": [{"Author": "Mei", "Text": "Calm"}]},
        {"ProductName": "Song", "Stars": "4"}]})");
    std::cout << shelf->Name() << '\n';
    for (const auto& font : shelf->Fonts()) {
        std::cout << font->ProductName() << ": " << font->Stars() << " stars\n";
        for (const auto& review : font->Reviews())
            std::cout << "    " << review->Author() << ": " << review->Text() << '\n';
    }
    // The queries take fonts of any class, as an array of FontItem.
    const Records<FontItem> fonts(shelf->Fonts().begin(), shelf->Fonts().end());
    std::cout << FontList::getFavoritedFont(fonts).size() << " favourite\n";
}
