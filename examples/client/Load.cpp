#include "Load.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/entity/Reply.hpp>

#include <PerchAppLibrary/record/explain.hpp>
#include <PerchAppLibrary/text/Text.hpp>

namespace client {

using namespace VelmoCloudEntity;

namespace {

template <class T>
QString ignored(const std::string& reply) {
    QStringList lines;
    const auto explanation = PerchAppLibrary::explain<T>(JSON::parse(reply, replyLimits));
    for (const PerchAppLibrary::Mismatch& each : explanation.mismatches)
        lines << shown(each.text());
    return lines.join('\n');
}

/// Returns what the service reports, in both languages.
std::string describe(const ServiceError& error) {
    const std::string chinese = error.text("Ch");
    const std::string english = error.text("En");
    return "error " + error.code + ": " +
           (chinese == english ? english : chinese + " / " + english);
}

/// Returns the error of the service that a failed transfer brought, which says more than the
/// transfer's own.
std::optional<ServiceError> reportedIn(const QByteArray& body) {
    try {
        return serviceError(JSON::parse(body.toStdString(), replyLimits));
    } catch (const JSON::ParseError&) {
        return std::nullopt;
    }
}

/// Reads a reply into the catalogue. Returns what is wrong with it, or nothing.
std::string read(Catalogue& catalogue, const Document& document, const Reply& reply) {
    try {
        if (reply.error.isEmpty())
            (catalogue.*document.read)(reply.text.toStdString());
        else if (const auto error = reportedIn(reply.text))
            return describe(*error);
        else if (document.isNeeded || !reply.isMissing)
            return reply.error.toStdString();
    } catch (const ReplyError& error) {
        return error.serviceError() ? describe(*error.serviceError()) : error.what();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

} // namespace

const std::array<Document, 4> documents{
    Document{"font-list.json", &Catalogue::readFonts, true, &ignored<FontList>},
    Document{"font-tags.json", &Catalogue::readTags, false, &ignored<FontTagList>},
    Document{"activated-fonts.json", &Catalogue::markActivated, false,
             &ignored<UserFontActivateMapItem>},
    Document{"favorite-fonts.json", &Catalogue::markFavourites, false,
             &ignored<UserFontFavoriteMapItem>}};

Loaded load(const std::vector<Reply>& replies) {
    Loaded loaded{Catalogue(), {}};
    for (std::size_t i = 0; i < documents.size(); ++i) {
        Catalogue dropped;
        Catalogue& catalogue = loaded.catalogue ? *loaded.catalogue : dropped;
        const std::string problem = read(catalogue, documents[i], replies[i]);
        loaded.problems << (problem.empty() ? "" : replies[i].name + ": " + shown(problem));
        if (!problem.empty() && documents[i].isNeeded)
            loaded.catalogue.reset();
    }
    return loaded;
}

QStringList ignoredIn(const std::vector<Reply>& replies, const QStringList& problems) {
    QStringList lines;
    for (std::size_t i = 0; i < documents.size(); ++i) {
        if (!problems[static_cast<qsizetype>(i)].isEmpty() || !replies[i].error.isEmpty())
            continue;
        const QString found = documents[i].ignored(replies[i].text.toStdString());
        if (!found.isEmpty())
            lines << replies[i].name + ":\n" + found;
    }
    return lines;
}

QString shown(std::string_view text) {
    constexpr std::size_t longest = 200;
    return QString::fromStdString(PerchAppLibrary::text::printable(text, longest));
}

} // namespace client
