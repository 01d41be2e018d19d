#include "Benchmarks.hpp"
#include "Comparison.hpp"
#include "Loaders.hpp"

#include <malloc.h>

#include <chrono>
#include <functional>

namespace {

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontList;

std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd; // bytes in the heap and in separate mappings
}

/// A hash of every field of every font. Loaders with different digests are not compared.
class Digest {
public:
    void add(std::string_view text) { mix(std::hash<std::string_view>()(text)); }
    void add(std::int64_t number) { mix(std::hash<std::int64_t>()(number)); }
    void add(bool flag) { mix(flag ? 3 : 5); }
    void add(const std::vector<std::int64_t>& numbers) {
        for (const std::int64_t number : numbers)
            add(number);
    }
    std::size_t value() const { return m_value; }

private:
    void mix(std::size_t hash) { m_value = (m_value ^ hash) * 0x9E3779B97F4A7C15U; }

    std::size_t m_value = 0;
};

void addAll(Digest& digest, const PlainFonts& fonts) {
    for (const auto& font : fonts) {
        forEachField(*font, [&](const char*, const auto& field) { digest.add(field); });
        addAll(digest, font->Children);
    }
}

void addAll(Digest& digest, const VelmoCloudEntity::Records<FontItem>& fonts) {
    for (const auto& font : fonts) {
#define FIELD(Name) digest.add(font->Name())
        FIELD(Guid), FIELD(Id), FIELD(IsDisabled), FIELD(ErrorCode), FIELD(Exception),
            FIELD(ExceptionCode), FIELD(ExceptionMessage), FIELD(TimeStamp), FIELD(DateStamp),
            FIELD(Token), FIELD(ApplyHot), FIELD(Ordinal), FIELD(NameOrdinal), FIELD(AppendOrdinal),
            FIELD(UserOrdinal), FIELD(TopClassify), FIELD(ProductSetId), FIELD(ProductSetName),
            FIELD(ProductName), FIELD(PostscriptName), FIELD(displayName), FIELD(Format),
            FIELD(Version), FIELD(Copyright), FIELD(ProductFileName), FIELD(ProductFileUrl),
            FIELD(PreviewFileUrl), FIELD(previewText), FIELD(RegisterKey), FIELD(IsOnline),
            FIELD(IsPreOnly), FIELD(IsAuthed), FIELD(IsFree), FIELD(FreeTag), FIELD(IsFontAuth),
            FIELD(IsMemberFont), FIELD(IsPrivate), FIELD(OemTag), FIELD(isActivated),
            FIELD(IsFavorited), FIELD(IsRecommended), FIELD(IsNewly), FIELD(FontKey),
            FIELD(IsGroup), FIELD(GroupTag), FIELD(GroupCollectionId), FIELD(Tags),
            FIELD(DateStampBegin), FIELD(DateStampEnd), FIELD(TopCount);
#undef FIELD
        addAll(digest, font->Children());
    }
}

std::size_t digestOf(const PlainFonts& fonts) {
    Digest digest;
    addAll(digest, fonts);
    return digest.value();
}

std::size_t digestOf(const FontList& fonts) {
    Digest digest;
    addAll(digest, fonts.List());
    return digest.value();
}

/// Times the load, without the copy of the text and the destruction of the tree. Counts the heap
/// bytes of the tree after the document is destroyed.
template <class Fonts>
void timeLoad(benchmark::State& state, Fonts (*load)(std::string), const FontDocument& document) {
    double bytes = 0;
    for (auto _ : state) {
        std::string text = reply(document);
        const std::size_t before = heapInUse() - text.capacity();
        const auto start = std::chrono::steady_clock::now();
        const Fonts fonts = load(std::move(text));
        const auto end = std::chrono::steady_clock::now();
        bytes = static_cast<double>(heapInUse() - before);
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    state.counters["bytes/font"] = bytes / static_cast<double>(document.fonts);
}

} // namespace

void registerLoad(const std::shared_ptr<const FontDocument>& document) {
    const Comparison loading("load", document->fonts);
    const auto add = [&](const std::string& side, auto load) {
        const auto isConsistent = loading.consistencyCheck(
            side, [document, load] { return digestOf(load(reply(*document))); });
        const auto time = [document, load, isConsistent](benchmark::State& state) {
            if (!isConsistent())
                state.SkipWithError("the fonts differ from those of another side");
            timeLoad(state, load, *document);
        };
        benchmark::RegisterBenchmark(loading.benchmarkName(side).c_str(), time)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    add("VelmoCloudEntity", &loadOurs);
    add("simdjson on-demand by hand", &loadOnDemand);
    add("simdjson document by hand", &loadDOM);
    add("RapidJSON", &loadRapidJSON);
    add("Boost.JSON", &loadBoostJSON);
    add("Qt", &loadQt);
    add("nlohmann/json", &loadNlohmann);
}
