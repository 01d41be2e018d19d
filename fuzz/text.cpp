// Fuzzes the rules of text: each function gives what ICU gives when the rule is read literally, of
// any spelling.
#include "Texts.hpp"

#include <tests/literal/LiteralText.hpp>

#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/internal/NeedleSet.hpp>

#include <unicode/locid.h>

#include <vector>

namespace text = PerchAppLibrary::text;
using namespace literal;
using text::Case;
using text::ComparedText;
using text::Needle;

namespace {

/// Tests the functions of one text. The compared texts have been used for others before.
void checkForms(const std::string& given, ComparedText& insensitive, ComparedText& sensitive) {
    const icu::UnicodeString units = unicode(given);
    const std::string whole = utf8(units);
    requireEqual(text::wellFormed(given), whole, "wellFormed");
    require(text::isWellFormed(given) == (given == whole), "isWellFormed " + given);
    requireEqual(text::decomposed(given), utf8(decomposed(units)), "decomposed");
    requireEqual(text::composed(given), utf8(composed(units)), "composed");
    const auto upperCased = icu::UnicodeString(units).toUpper(icu::Locale::getRoot());
    requireEqual(text::uppercased(given), utf8(upperCased), "uppercased");
    requireEqual(text::folded(given), utf8(folded(units)), "folded");
    require(text::utf16Length(given) == static_cast<std::size_t>(units.length()), given);
    require(text::codePointCount(given) == static_cast<std::size_t>(units.countChar32()), given);
    require(text::graphemeCount(given) == static_cast<std::size_t>(characterCount(units)), given);
    insensitive.assign(given);
    sensitive.assign(given);
    requireEqual(insensitive.bytes(), text::folded(given), "compared without case");
    requireEqual(sensitive.bytes(), text::decomposed(given), "compared");
}

void checkParts(Input& input, const std::string& given) {
    const icu::UnicodeString units = unicode(given);
    const auto length = static_cast<std::size_t>(units.length());
    const std::size_t begin = input.below(length + 2), end = begin + input.below(length + 2);
    const auto part = units.tempSubStringBetween(static_cast<int>(begin), static_cast<int>(end));
    requireEqual(text::wellFormed(text::utf16Substring(given, begin, end)), utf8(part), given);
    const std::string_view first = text::firstCodePoint(given);
    require(first.empty() == given.empty(), given);
    require(given.empty() || text::codePoint(first) == static_cast<char32_t>(units.char32At(0)),
            given);
}

/// The searched text has been used for others before.
void checkSearch(const std::string& given, const std::string& key, ComparedText& searched) {
    const std::vector<char> exact(given.begin(), given.end()); // shows reads behind it
    searched.assign(std::string_view(exact.data(), exact.size()));
    const Needle needle(key);
    const bool isIn = contains(given, unicode(key));
    const std::string context = given + "\nkey: " + key;
    require(needle.isIn(searched) == isIn, context);
    const text::TextSignature signature(searched);
    require(needle.prefilter(signature).value_or(isIn) == isIn, context);
    text::TextSignature direct;
    require(!direct.addASCII(given) || (direct.covers(signature) && signature.covers(direct)),
            context);
    const auto place = needle.find(searched);
    require(place.has_value() == isIn, context);
    const auto part = needle.partOf(given);
    require(part.has_value() == isIn, context);
    if (!isIn)
        return;
    const std::string_view folded = searched.bytes();
    require(folded.substr(*place).starts_with(text::folded(key)), context);
    require(!contains(std::string(folded.substr(0, *place)), unicode(key)), context);
    require(contains(given.substr(part->begin, part->end - part->begin), unicode(key)), context);
    require(!contains(given.substr(0, part->begin), unicode(key)), context);
}

void checkSet(Input& input, Texts& texts, const std::string& given) {
    text::NeedleSet set;
    bool isIn = false;
    std::string keys;
    for (std::size_t count = input.below(4); count > 0; --count) {
        const std::string key = texts.respelled(texts.part(input.oneIn(2) ? given : texts.fresh()));
        set.add(key);
        isIn = isIn || contains(given, unicode(key));
        keys += key + "\n";
    }
    require(set.anyIn(ComparedText(given)) == isIn, given + "\nkeys: " + keys);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Texts texts(input);
    ComparedText insensitive, sensitive(Case::sensitive), searched;
    do {
        std::string given = texts.fresh();
        if (input.oneIn(8))
            given += input.rest();
        if (input.oneIn(6)) // a needle from it is long, and its beginning occurs often
            given = given + given + texts.fresh() + given;
        checkForms(given, insensitive, sensitive);
        checkParts(input, given);
        checkSearch(given, texts.respelled(input.oneIn(4) ? texts.fresh() : texts.part(given)),
                    searched);
        checkSet(input, texts, given);
    } while (!input.isAtEnd());
    return 0;
}
