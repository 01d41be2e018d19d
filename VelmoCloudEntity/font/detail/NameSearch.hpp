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
    Decision decision;
    if (FontNames::hasSignature(font))
        decision = query.prefilter(names.signature(font));
    return decision ? *decision : query.matches(font, names);
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
    /// The results of the prefilters, one for each query.
    using Decisions = std::array<Decision, sizeof...(Queries)>;

    /// A leaf that waits for the end of its batch. Owns the leaf, since its array may be destroyed
    /// before that.
    struct Candidate {
        std::shared_ptr<FontItem> leaf;
        Decisions decisions;
        bool isPrefiltered; // false if the signature was not known
    };

    /// Runs the prefilters of the font. They decide nothing about a font without a signature.
    Decisions prefilter(const FontItem& font) {
        if (!FontNames::hasSignature(font))
            return {};
        const TextSignature signature = m_names.signature(font);
        const auto decisions = [&](Queries&... query) {
            return Decisions{query.prefilter(signature)...};
        };
        return std::apply(decisions, m_queries);
    }

    /// Adds the leaf to the batch unless the signature rules it out for all queries.
    void add(const std::shared_ptr<FontItem>& leaf) {
        const bool isKnown =
            FontAccess::signature(*leaf).isKnown() || !FontNames::hasSignature(*leaf);
        const Decisions decisions = isKnown ? prefilter(*leaf) : Decisions();
        if (isRejected(decisions))
            return;
        if (isUndecided(decisions))
            FontAccess::prefetchNames(*leaf);
        m_batch[m_batchSize++] = {leaf, decisions, isKnown};
        if (m_batchSize == m_batch.size())
            finishBatch();
    }

    /// Adds the matching leaves of the batch to the results, and empties the batch.
    void finishBatch() {
        const std::span batch = std::span(m_batch).first(m_batchSize);
        for (const Candidate& candidate : batch)
            if (isUndecided(candidate.decisions))
                FontAccess::prefetchTexts(*candidate.leaf);
        for (Candidate& candidate : batch)
            if (!candidate.isPrefiltered)
                candidate.decisions = prefilter(*candidate.leaf);
        for (const Candidate& candidate : batch)
            collect(candidate, std::index_sequence_for<Queries...>());
        m_batchSize = 0;
    }

    /// Returns whether every query rejects the font.
    static bool isRejected(const Decisions& decisions) {
        return std::ranges::none_of(decisions, [](Decision each) { return each.value_or(true); });
    }

    /// Returns whether a query needs the names of the font.
    static bool isUndecided(const Decisions& decisions) {
        return std::ranges::any_of(decisions, [](Decision each) { return !each; });
    }

    /// Adds the leaf to the result of each query that it matches.
    template <std::size_t... index>
    void collect(const Candidate& candidate, std::index_sequence<index...>) {
        const auto collectFor = [&](auto& query, Decision decision, auto& result) {
            if (decision ? *decision : query.matches(*candidate.leaf, m_names))
                result.push_back(candidate.leaf);
        };
        (collectFor(std::get<index>(m_queries), candidate.decisions[index], m_results[index]), ...);
    }

    std::tuple<Queries...> m_queries;
    FontNames m_names;
    std::array<Candidate, 32> m_batch;
    std::size_t m_batchSize = 0;
    Results m_results;
};

} // namespace VelmoCloudEntity
