#pragma once

#include <unicode/unistr.h>

#include <string>

/// Rules of text, read literally with ICU's own strings: short, slow and obviously right. Tests and
/// fuzzers compare the library's searches with them.
namespace literal {

/// Returns the UTF-16 of any bytes. Ill-formed sequences become U+FFFD.
icu::UnicodeString unicode(const std::string& text);
std::string utf8(const icu::UnicodeString& text);

icu::UnicodeString decomposed(const icu::UnicodeString& text);
icu::UnicodeString composed(const icu::UnicodeString& text);
icu::UnicodeString folded(const icu::UnicodeString& text);

/// Returns whether the name contains the key: case ignored, and no letter cut off from its marks.
/// No name contains an empty key.
bool contains(const std::string& name, const icu::UnicodeString& key);

/// Returns the number of user-perceived characters.
int characterCount(const icu::UnicodeString& text);

} // namespace literal
