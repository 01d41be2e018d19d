// Exits with 0 if the installed simdjson has the internal interface that TokenSource uses, and if
// its first stage finds tokens and faults as TokenSource expects.
#include <simdjson.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Stages = simdjson::internal::dom_parser_implementation;

const std::uint8_t* bytesOf(const std::string& text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

/// Returns the offsets at which TokenSource expects tokens: brackets, colons, commas, and the begin
/// of each string, number and word. Behind the last is the size of the text.
std::vector<std::uint32_t> tokensOf(std::string_view text) {
    std::vector<std::uint32_t> tokens;
    bool isInString = false;
    bool isInWord = false;
    for (std::uint32_t at = 0; at < text.size(); ++at) {
        const char character = text[at];
        if (isInString) {
            isInString = character != '"';
            at += character == '\\' ? 1 : 0;
            continue;
        }
        isInString = character == '"';
        const bool isBlank = std::string_view(" \t\r\n").find(character) != std::string_view::npos;
        const bool isSign = std::string_view("\"[]{}:,").find(character) != std::string_view::npos;
        if (isSign || (!isBlank && !isInWord))
            tokens.push_back(at);
        isInWord = !isBlank && !isSign;
    }
    tokens.push_back(static_cast<std::uint32_t>(text.size()));
    return tokens;
}

/// Runs the first stage over a text. More text follows it, as behind a window.
simdjson::error_code runFirstStage(Stages& stages, const std::string& text) {
    const std::string longer = text + "\"\xFF" + std::string(simdjson::SIMDJSON_PADDING, ' ');
    if (stages.capacity() < text.size())
        if (const simdjson::error_code error = stages.set_capacity(text.size()))
            return error;
    return stages.stage1(bytesOf(longer), text.size(), simdjson::stage1_mode::regular);
}

bool findsTokens(Stages& stages, const std::string& text) {
    if (runFirstStage(stages, text) != simdjson::SUCCESS)
        return false;
    const std::uint32_t* const found = stages.structural_indexes.get();
    const std::vector<std::uint32_t> expected = tokensOf(text);
    return stages.n_structural_indexes + 1 == expected.size() &&
           std::equal(expected.begin(), expected.end(), found);
}

/// Returns the text between the quotation marks, or nullopt for a wrong escape. The function has a
/// third parameter in later versions.
template <class AnyStages>
std::optional<std::string> contentOf(const AnyStages& stages, const std::string& string) {
    const std::string padded = string + std::string(simdjson::SIMDJSON_PADDING, ' ');
    std::vector<std::uint8_t> content(string.size() + 2 * simdjson::SIMDJSON_PADDING);
    std::uint8_t* const begin = content.data();
    const std::uint8_t* end = nullptr;
    if constexpr (requires { stages.parse_string(begin, begin, false); })
        end = stages.parse_string(bytesOf(padded) + 1, begin, false);
    else
        end = stages.parse_string(bytesOf(padded) + 1, begin);
    if (end == nullptr)
        return std::nullopt;
    return std::string(content.begin(), content.begin() + (end - begin));
}

/// Returns whether all is as expected. The blanks shift the texts over the blocks of the parser.
bool suits(Stages& stages, const std::string& blanks) {
    const std::string sound = R"( [{"Id":7 ,"a\"\\":[ ],"b\\\\\\":"é,{}"},-1.5e3,)"
                              "\t\r\n"
                              R"(true,null,)";
    for (const std::string text : {"[1,", R"("a"1)", R"("a""b":)", "\"a\"\f", "x,\xC3\xA9,\"\""})
        if (!findsTokens(stages, blanks + text) || !findsTokens(stages, sound + blanks + text))
            return false;
    for (const std::string open : {"[\"a", "\"\\\"", "\"\\\\\\\"]"})
        if (runFirstStage(stages, blanks + open) != simdjson::UNCLOSED_STRING)
            return false;
    for (const std::string fault : {"[\"\n\"]", "\"\x01\"", "[\"\xC0\"]", "\"\x80\"", "\xE2\x82"}) {
        const simdjson::error_code error = runFirstStage(stages, blanks + fault);
        if (error == simdjson::SUCCESS || error == simdjson::UNCLOSED_STRING)
            return false;
    }
    for (const std::string wrong : {R"("\x")", R"("\u12")", R"("\ud800")", R"("\ud800\u0041")"})
        if (contentOf(stages, wrong))
            return false;
    return contentOf(stages, '"' + blanks + R"(\"\\\/\b\f\n\r\t\u00e9\ud83d\ude00é", "x")") ==
           blanks + "\"\\/\b\f\n\r\t\u00e9\U0001F600\u00e9";
}

} // namespace

int main() {
    for (const simdjson::implementation* const reader : simdjson::get_available_implementations()) {
        if (!reader->supported_by_runtime_system() || reader->name() == "fallback")
            continue; // TokenSource does not use the fallback
        std::unique_ptr<Stages> stages;
        if (reader->create_dom_parser_implementation(simdjson::SIMDJSON_PADDING, 1, stages))
            return 1;
        for (std::size_t shift = 0; shift < 130; ++shift)
            if (!suits(*stages, std::string(shift, ' '))) {
                std::printf("%s, after %zu blanks\n", reader->name().c_str(), shift);
                return 1;
            }
    }
    return 0;
}
