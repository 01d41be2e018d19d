#pragma once

#include "Catalogue.hpp"
#include "Replies.hpp"

#include <array>

namespace client {

/// A reply that the window shows, and the function that reads it.
struct Document {
    const char* name;
    void (Catalogue::*read)(const std::string& reply);
    bool isNeeded; // without it, nothing is shown
    QString (*ignored)(const std::string& reply);
};
extern const std::array<Document, 4> documents;

/// What the replies gave.
struct Loaded {
    std::optional<Catalogue> catalogue; // nullopt if a reply that is needed could not be read
    QStringList problems;               // of each reply: why it could not be read, or nothing
};

/// Reads the replies of the documents. Takes its time, so call it in a thread of its own.
Loaded load(const std::vector<Reply>& replies);

/// Returns what load() ignored of the replies without a problem, a line for each kind. Takes
/// several times as long as load().
QStringList ignoredIn(const std::vector<Reply>& replies, const QStringList& problems);

/// Returns a text that may come from a reply in a form that can be drawn: one line of at most 200
/// characters, control characters as escapes.
QString shown(std::string_view text);

} // namespace client
