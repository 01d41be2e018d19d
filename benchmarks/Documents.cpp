#include "Benchmarks.hpp"

#include "Loaders.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <fstream>
#include <sstream>

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontList;

FontDocument repeatedSample(std::size_t minFonts) {
    std::ifstream file(VELMO_SAMPLES "/font-list.json");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string sample = content.str();
    const FontList list(PerchAppLibrary::JSON::parse(sample));
    const auto fontsInSample = static_cast<std::size_t>(FontList::getFontCount(list.List()));

    const std::size_t begin = sample.find('[') + 1;
    const std::string items = sample.substr(begin, sample.rfind(']') - begin);
    FontDocument document{"[", 0};
    for (; document.fonts < minFonts; document.fonts += fontsInSample)
        document.text.append(document.fonts == 0 ? "" : ",").append(items);
    document.text += ']';
    return document;
}

std::string reply(const FontDocument& document) {
    std::string text;
    text.reserve(document.text.size() + 64);
    text = document.text;
    return text;
}

FontTree::FontTree(const FontDocument& document)
    : fonts(loadOurs(document.text).List()), leaves(document.fonts) {
    std::int64_t id = 0; // replaces the identifiers of the sample, which repeat
    forEachLeaf(fonts, [&id](const std::shared_ptr<FontItem>& leaf) {
        leaf->setId(++id);
        leaf->setIsPrivate(false);
        leaf->setIsActivated(false);
        leaf->setIsFavorited(false);
    });
}
