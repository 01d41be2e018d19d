#pragma once

#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/detail/FontAccess.hpp>
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
/// name has a place of its own in memory. So the walk collects the undecided fonts, and those whose
/// signature is not known yet, in batches, and prefetches the names of a batch before it reads the
/// first of them.
template <NameQuery... Queries>
class NameSearch {
public:
    /// For each query, the leaves that match it.
    using Results = std::array<Records<FontItem>, sizeof...(Queries)>;

    explicit NameSearch(Queries... queries) : m_queries(std::move(queries)...) {}

    /// Returns the matching leaves of the tree, in the order of the walk. Requires that it was not
    /// called before.
    Results in(const Records<FontItem>& list) {
        forEachLeaf(list, [this](const std::shared_ptr<FontItem>& leaf) { add(leaf); });
        finishBatch();
        return std::move(m_results);
    }

private:
    /// The verdicts by the signature, one for each query.
    using Verdicts = std::array<Verdict, sizeof...(Queries)>;

    /// A leaf that waits for the end of its batch. Owns the leaf, since its array may be destroyed
    /// before that.
    struct Candidate {
        std::shared_ptr<FontItem> leaf;
        Verdicts verdicts;
        bool hasVerdicts; // false if the signature was not known
    };

    /// Returns the verdicts by the signature of the font. They are undecided if it has none.
    Verdicts signatureVerdicts(const FontItem& font) {
        if (!FontNames::hasSignature(font))
            return {};
        const TextSignature signature = m_names.signature(font);
        const auto verdicts = [&](Queries&... query) {
            return Verdicts{query.verdict(signature)...};
        };
        return std::apply(verdicts, m_queries);
    }

    /// Adds the leaf to the batch unless the signature rules it out for all queries.
    void add(const std::shared_ptr<FontItem>& leaf) {
        const bool isKnown =
            FontAccess::signature(*leaf).isKnown() || !FontNames::hasSignature(*leaf);
        const Verdicts verdicts = isKnown ? signatureVerdicts(*leaf) : Verdicts();
        if (isRejected(verdicts))
            return;
        if (isUndecided(verdicts))
            FontAccess::prefetchNames(*leaf);
        m_batch[m_batchSize++] = {leaf, verdicts, isKnown};
        if (m_batchSize == m_batch.size())
            finishBatch();
    }

    /// Adds the matching leaves of the batch to the results, and empties the batch.
    void finishBatch() {
        const std::span batch = std::span(m_batch).first(m_batchSize);
        for (const Candidate& candidate : batch)
            if (isUndecided(candidate.verdicts))
                FontAccess::prefetchTexts(*candidate.leaf);
        for (Candidate& candidate : batch)
            if (!candidate.hasVerdicts)
                candidate.verdicts = signatureVerdicts(*candidate.leaf);
        for (const Candidate& candidate : batch)
            collect(candidate, std::index_sequence_for<Queries...>());
        m_batchSize = 0;
    }

    /// Returns whether every query rejects the font.
    static bool isRejected(const Verdicts& verdicts) {
        return std::ranges::none_of(verdicts, [](Verdict each) { return each.value_or(true); });
    }

    /// Returns whether a query needs the names of the font.
    static bool isUndecided(const Verdicts& verdicts) {
        return std::ranges::any_of(verdicts, [](Verdict each) { return !each; });
    }

    /// Adds the leaf to the result of each query that it matches.
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
