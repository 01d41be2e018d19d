#include "Texts.hpp"

#include <algorithm>

namespace client {

QString drawable(std::string_view text, qsizetype longest) {
    // A code unit takes at most three bytes, so the rest would be cut anyway.
    const auto bytes = static_cast<std::size_t>(4 * (longest + 1));
    QString drawn = QString::fromUtf8(text.substr(0, bytes));
    if (drawn.size() > longest) {
        drawn.truncate(longest - 1);
        if (drawn.back().isHighSurrogate())
            drawn.chop(1);
        drawn += QChar(0x2026); // an ellipsis
    }
    std::ranges::replace_if(
        drawn,
        [](QChar unit) {
            const bool isBidiControl = (unit >= QChar(0x202A) && unit <= QChar(0x202E)) ||
                                       (unit >= QChar(0x2066) && unit <= QChar(0x2069));
            return isBidiControl || unit.category() == QChar::Other_Control ||
                   unit.category() == QChar::Separator_Line ||
                   unit.category() == QChar::Separator_Paragraph;
        },
        QChar(' '));
    return drawn;
}

} // namespace client
