// Reads a catalogue from replies, and tells what they hold that it ignores.
#include "Catalogue.hpp"
#include "Texts.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/entity/Reply.hpp>

#include <PerchAppLibrary/record/explain.hpp>

namespace client {

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

/// Returns the limits of a reply. A record takes hundreds of bytes, but may have two in the text. A
/// font of the service has twenty bytes for each element.
JSON::Limits limitsOf(std::string_view fonts) {
    return {.elements = std::min<std::size_t>(1000 + fonts.size() / 10, 3'000'000)};
}
constexpr JSON::Limits limits{.elements = 1'000'000};    // of the other replies
constexpr JSON::Limits explained{.elements = 4'000'000}; // of documents, which take less

/// A kind of reply.
struct Document {
    const char* name;
    void (Catalogue::*read)(std::string_view reply);
    PerchAppLibrary::Explanation (*explain)(const JSON& document);
    bool isNeeded;
};

template <class T>
PerchAppLibrary::Explanation explainAs(const JSON& document) {
    return PerchAppLibrary::explain<T>(document);
}

constexpr std::array documents{
    Document{"font-list.json", &Catalogue::readFonts, explainAs<FontList>, true},
    Document{"font-tags.json", &Catalogue::readTags, explainAs<FontTagList>, false},
    Document{"activated-fonts.json", &Catalogue::markActivated, explainAs<UserFontActivateMapItem>,
             false},
    Document{"favorite-fonts.json", &Catalogue::markFavourites, explainAs<UserFontFavoriteMapItem>,
             false}};

std::string_view textOf(const Reply& reply) {
    return {reply.text.constData(), static_cast<std::size_t>(reply.text.size())};
}

/// Returns what an error of the service says, in both languages.
std::string describe(const ServiceError& error, const char* english) {
    const std::string chinese = error.text("Ch");
    return chinese == error.text("En")
               ? english
               : "error " + error.code + ": " + chinese + " / " + error.text("En");
}

/// Reads a reply into the catalogue. Returns what is wrong with it, or an empty text.
std::string problemOf(Reply& reply, const Document& document, Catalogue& catalogue) {
    readFile(reply);
    if (reply.isMissing && !document.isNeeded)
        return {};
    Catalogue unused; // for what a failed transfer brought, which may be an error of the service
    std::string problem;
    try {
        ((reply.error.isEmpty() ? catalogue : unused).*document.read)(textOf(reply));
    } catch (const ReplyError& error) {
        if (const auto& reported = error.serviceError())
            return describe(*reported, error.what());
        problem = error.what();
    } catch (const std::exception& error) {
        problem = error.what();
    }
    return reply.error.isEmpty() ? problem : reply.error.toStdString();
}

} // namespace

void Catalogue::readFonts(std::string_view reply) {
    m_fonts = parseReply<FontList>(reply, limitsOf(reply));
    m_fontCount = FontList::getFontCount(m_fonts.List());
    m_passing.reset();
    // The first search computes the signatures of all names. Here, nobody waits for a key.
    FontList::getFontByName(m_fonts.List(), "a", true);
}

void Catalogue::readTags(std::string_view reply) {
    m_tags = parseReply<FontTagList>(reply, limits);
    m_passing.reset();
}

void Catalogue::markActivated(std::string_view reply) {
    FontList::setActivatedFont(m_fonts.List(),
                               parseReply<UserFontActivateMapItem>(reply, limits)->FontList());
}

void Catalogue::markFavourites(std::string_view reply) {
    FontList::setFavoritedFont(m_fonts.List(),
                               parseReply<UserFontFavoriteMapItem>(reply, limits)->FontList());
}

QStringList replyNames() {
    QStringList names;
    for (const Document& document : documents)
        names << document.name;
    return names;
}

Loaded load(std::vector<Reply> replies) {
    Loaded loaded{std::make_shared<Catalogue>(), {}, std::move(replies)};
    for (std::size_t i = 0; i < documents.size() && loaded.catalogue; ++i) {
        const std::string problem = problemOf(loaded.replies[i], documents[i], *loaded.catalogue);
        if (problem.empty())
            continue;
        loaded.problems << documents[i].name + (": " + drawable(problem, 300));
        if (documents[i].isNeeded)
            loaded.catalogue = nullptr;
    }
    return loaded;
}

QStringList ignoredIn(const std::vector<Reply>& replies) {
    constexpr qsizetype longest = 200; // lines; a hostile reply may have a new key in each object
    QStringList lines;
    for (std::size_t i = 0; i < documents.size(); ++i)
        try {
            if (!replies[i].error.isEmpty() || replies[i].isMissing)
                continue;
            const auto explanation =
                documents[i].explain(JSON::parse(textOf(replies[i]), explained));
            for (const auto& mismatch : explanation.mismatches)
                if (lines.size() < longest)
                    lines << documents[i].name + (": " + drawable(mismatch.text(), 300));
        } catch (const std::exception&) {
            continue; // load() has reported it
        }
    return lines;
}

} // namespace client
