#pragma once

#include <QString>

#include <string_view>

namespace client {

/// Returns a text of a reply as it may be drawn: on one line, without characters that control the
/// layout, and cut to this many UTF-16 code units. Drawing takes time and space with the length.
QString drawable(std::string_view text, qsizetype longest = 200);

} // namespace client
