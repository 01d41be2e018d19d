#pragma once

#include <PerchAppLibrary/text/Text.hpp>

#include <QString>

namespace client {

/// Returns a text of a reply as it may be drawn: on one line, with characters that control the
/// layout escaped, and cut to this many code points. Drawing takes time and space with the length.
inline QString drawable(std::string_view text, std::size_t longest = 200) {
    return QString::fromStdString(PerchAppLibrary::text::printable(text, longest));
}

} // namespace client
