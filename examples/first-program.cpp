#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>
#include <fstream>
#include <iostream>
#include <stdexcept>
using namespace VelmoCloudEntity;

std::string read(const std::string& name) {
    std::ifstream file(name);
    std::string text{std::istreambuf_iterator(file), {}};
    if (!file)
        throw std::runtime_error(name + " cannot be read");
    return text;
}

int main() {
    try {
        const FontList fonts = FontList::parse(read("samples/font-list.json"));
        const auto mine = UserFontActivateMapItem::parse(read("samples/activated-fonts.json"));
        FontList::setActivatedFont(fonts.List(), mine->FontList());
        for (const auto& font : FontList::getActivatedFont(fonts.List()))
            std::cout << font->TreeNodeTitle() << ": " << font->LocalFile() << '\n';
    } catch (const std::exception& error) { // no file, or a JSON::ParseError with line and column
        std::cerr << error.what() << '\n';
        return 1;
    }
}
