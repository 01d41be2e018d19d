#pragma once

#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/detail/FontNames.hpp>
#include <VelmoCloudEntity/font/detail/NameQuery.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <tuple>
#include <utility>

namespace VelmoCloudEntity {

/// Returns whether the font matches the query.
template <NameQuery Query>
bool matches(const FontItem& font, Query query) {
    FontNames names;
    Verdict verdict;
    if (FontNames::hasSignature(font))
        verdict = query.verdict(names.signature(font));
    return verdict ? *verdict : query.verdict(font, names);
}

/// One walk over a tree of fonts for one or more queries.
///
/// The signature decides most fonts. It lies beside the fields that every walk reads, whereas each
/// name has a place of its own in memory. So the fonts that it leaves open are collected, and the
/// names of a whole batch are requested from memory before the first of them is read.
template <NameQuery... Queries>
class NameSearch {
public:
    /// For each query, the leaves that match it.
    using Results = std::array<Records<FontItem>, sizeof...(Queries)>;

    explicit NameSearch(Queries... queries) : m_queries(std::move(queries)...) {}

    /// Returns the matching leaves of the tree, in the order of the walk. To be called once.
    Results in(const Records<FontItem>& list) {
        forEachLeaf(list, [this](const std::shared_ptr<FontItem>& leaf) { add(leaf); });
        finishBatch();
        return std::move(m_results);
    }

private:
    /// Those by the signature, one for each query.
    using Verdicts = std::array<Verdict, sizeof...(Queries)>;

    struct Candidate {
        std::shared_ptr<FontItem> leaf; // owned: its array may be destroyed before its turn
        Verdicts verdicts;
    };

    Verdicts verdictsOn(const FontItem& font) {
        if (!FontNames::hasSignature(font))
            return {};
        const TextSignature signature = m_names.signature(font);
        const auto ask = [&](Queries&... query) { return Verdicts{query.verdict(signature)...}; };
        return std::apply(ask, m_queries);
    }

    void add(const std::shared_ptr<FontItem>& leaf) {
        const Verdicts verdicts = verdictsOn(*leaf);
        if (isRejected(verdicts))
            return;
        if (isOpen(verdicts))
            leaf->prefetchNames();
        m_batch[m_batchSize++] = {leaf, verdicts};
        if (m_batchSize == m_batch.size())
            finishBatch();
    }

    void finishBatch() {
        const std::span batch = std::span(m_batch).first(m_batchSize);
        for (const Candidate& candidate : batch)
            if (isOpen(candidate.verdicts))
                candidate.leaf->prefetchTexts();
        for (const Candidate& candidate : batch)
            collect(candidate, std::index_sequence_for<Queries...>());
        m_batchSize = 0;
    }

    static bool isRejected(const Verdicts& verdicts) {
        return std::ranges::none_of(verdicts, [](Verdict each) { return each.value_or(true); });
    }

    static bool isOpen(const Verdicts& verdicts) {
        return std::ranges::any_of(verdicts, [](Verdict each) { return !each; });
    }

    template <std::size_t... index>
    void collect(const Candidate& candidate, std::index_sequence<index...>) {
        const auto collectFor = [&](auto& query, Verdict verdict, auto& result) {
            if (verdict ? *verdict : query.verdict(*candidate.leaf, m_names))
                result.push_back(candidate.leaf);
        };
        (collectFor(std::get<index>(m_queries), candidate.verdicts[index], m_results[index]), ...);
    }

    std::tuple<Queries...> m_queries;
    FontNames m_names;
    std::array<Candidate, 32> m_batch;
    std::size_t m_batchSize = 0;
    Results m_results;
};

} // namespace VelmoCloudEntity
