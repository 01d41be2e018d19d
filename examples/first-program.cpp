#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>
#include <fstream>
#include <iostream>
using namespace VelmoCloudEntity;
std::string read(std::ifstream file) { return {std::istreambuf_iterator(file), {}}; }
int main() {
    const FontList fonts = FontList::parse(read(std::ifstream("samples/font-list.json")));
    const auto mine =
        UserFontActivateMapItem::parse(read(std::ifstream("samples/activated-fonts.json")));
    FontList::setActivatedFont(fonts.List(), mine->FontList());
    for (const auto& font : FontList::getActivatedFont(fonts.List()))
        std::cout << font->TreeNodeTitle() << ": " << font->LocalFile() << '\n';
}
