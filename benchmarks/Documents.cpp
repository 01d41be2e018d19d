#include "Benchmarks.hpp"

#include "programs/OurClient.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

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

const std::string& DocumentFile::path() const {
    if (!std::filesystem::exists(m_path)) {
        std::ofstream file(m_path, std::ios::binary);
        file << m_text();
        if (!file.flush())
            throw std::runtime_error("cannot write " + m_path);
    }
    return m_path;
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
