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

/// Returns the error of the service that a text reports. One that is no JSON reports none.
std::optional<ServiceError> reportedIn(std::string_view text) {
    try {
        return serviceError(JSON::parse(text, limits));
    } catch (const JSON::ParseError&) {
        return std::nullopt;
    }
}

/// Throws the error of a failed transfer: the service's own if the reply reports one.
void requireTransferred(const Reply& reply) {
    if (reply.error.isEmpty())
        return;
    if (const auto reported = reportedIn(textOf(reply)))
        throw ReplyError(*reported);
    if (!reply.isMissing)
        throw std::runtime_error(reply.error.toStdString());
}

/// Returns what an error reply says, in both languages, or what else is wrong with a reply.
std::string describe(const ReplyError& error) {
    const auto& reported = error.serviceError();
    if (!reported || reported->text("Ch") == reported->text("En"))
        return error.what();
    return "error " + reported->code + ": " + reported->text("Ch") + " / " + reported->text("En");
}

/// Reads a reply into the catalogue. Returns what is wrong with it, or an empty text.
std::string problemOf(Reply& reply, const Document& document, Catalogue& catalogue) {
    try {
        readFile(reply);
        requireTransferred(reply);
        if (!reply.isMissing)
            (catalogue.*document.read)(textOf(reply));
        else if (document.isNeeded)
            return reply.error.isEmpty() ? "it is missing" : reply.error.toStdString();
        return {};
    } catch (const ReplyError& error) {
        return describe(error);
    } catch (const std::exception& error) {
        return error.what();
    }
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
