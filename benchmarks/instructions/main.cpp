// Small pieces of work, always the same, whose instructions are counted: velmo-workload NAME does
// one of them.
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

using Work = std::function<void()>;

std::string sample(const std::string& name) {
    std::ifstream file(VELMO_SAMPLES "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

FontList fontList() { return FontList(JSON::parse(sample("font-list.json"))); }

std::vector<std::int64_t> idsOf(const FontList& fonts) {
    std::vector<std::int64_t> ids;
    forEachLeaf(fonts.List(), [&ids](const auto& leaf) { ids.push_back(leaf->Id()); });
    return ids;
}

Work load() {
    return [text = sample("font-list.json")] { FontList::parse(text); };
}

/// Twice: the first search fills caches.
Work search() {
    FontList::getSearchResultFont(fontList().List(), "é"); // ICU loads its data at its first use
    return [fonts = fontList()] {
        for (int times = 0; times < 2; ++times)
            for (const char* const key : {"sans", "宋体", "Étude", "q"}) {
                FontList::getFontByName(fonts.List(), key, true);
                FontList::getFontByKey(fonts.List(), key, false);
                FontList::getSearchResultFont(fonts.List(), key);
            }
    };
}

Work lookup() {
    return [fonts = fontList(), ids = idsOf(fontList())] {
        const Records<FontItem> found = FontList::getFontById(fonts.List(), ids);
        FontList::setActivatedFont(fonts.List(), found);
        FontList::setFavoritedFont(fonts.List(), found);
    };
}

Work filter() {
    const FontTagList tags(JSON::parse(sample("font-tags.json")));
    for (const auto& group : tags.List())
        for (const auto& tag : group->Children())
            tag->setIsChecked(true);
    return [tags, ids = idsOf(fontList())] {
        FontTagList::getCheckedFontTagFontIdList(tags.List(), ids);
    };
}

Work exportText() {
    return [fonts = fontList()] { FontItem::getFontArrayText(fonts.List()); };
}

Work dictionaries() {
    return [fonts = fontList()] { FontItem::getFontArray(fonts.List()); };
}

const std::map<std::string, Work (*)()> works{{"dictionaries", &dictionaries},
                                              {"export", &exportText},
                                              {"filter", &filter},
                                              {"load", &load},
                                              {"lookup", &lookup},
                                              {"search", &search}};

} // namespace

/// Instructions are counted in here.
extern "C" [[gnu::noinline]] void measured(const Work& work) { work(); }

int main(int argc, char** argv) try {
    const auto found = argc == 2 ? works.find(argv[1]) : works.end();
    if (found == works.end()) {
        for (const auto& [name, prepare] : works)
            std::puts(name.c_str());
        return argc == 1 ? 0 : 2;
    }
    const Work work = found->second();
#ifdef __GLIBC__
    malloc_trim(0); // so that the heap is not tidied while instructions are counted
#endif
    measured(work);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "velmo-workload: %s\n", error.what());
    return 1;
}
