#include "Loaders.hpp"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <stdexcept>
#include <type_traits>
#include <utility>
#include <variant>

namespace {

/// Fills fonts from the events of a reader. An event that fits no field returns false, which ends
/// the parse with an error, unless its key is unknown.
class Handler {
public:
    explicit Handler(PlainFonts& fonts) : m_target(&fonts) {}

    bool Null() { return isIgnored(); }
    bool Bool(bool flag) { return store(flag); }
    bool Int(int number) { return addNumber(number); }
    bool Uint(unsigned number) { return addNumber(number); }
    bool Int64(std::int64_t number) { return addNumber(number); }
    bool Uint64(std::uint64_t number) {
        return std::in_range<std::int64_t>(number) ? addNumber(static_cast<std::int64_t>(number))
                                                   : isIgnored();
    }
    bool Double(double) { return isIgnored(); }
    static bool RawNumber(const char*, rapidjson::SizeType, bool) { return false; } // not called
    bool String(const char* text, rapidjson::SizeType length, bool) {
        return store(std::string_view(text, length));
    }

    bool Key(const char* key, rapidjson::SizeType length, bool) {
        if (m_ignoredDepth > 0)
            return true;
        m_target = std::monostate();
        readMember(*m_open.back().font, {key, length}, [this](auto& field) { m_target = &field; });
        return true;
    }

    bool StartObject() {
        if (isIgnored()) {
            ++m_ignoredDepth;
            return true;
        }
        PlainFonts* const* const fonts = std::get_if<PlainFonts*>(&m_target);
        if (fonts == nullptr || m_open.empty() || m_open.back().fonts != *fonts)
            return false;
        m_open.back().font = (*fonts)->emplace_back(std::make_shared<PlainFont>()).get();
        return true;
    }

    bool EndObject(rapidjson::SizeType) {
        if (m_ignoredDepth > 0)
            --m_ignoredDepth;
        else
            m_target = m_open.back().fonts;
        return true;
    }

    bool StartArray() {
        if (isIgnored())
            ++m_ignoredDepth;
        else if (PlainFonts* const* const fonts = std::get_if<PlainFonts*>(&m_target))
            m_open.push_back({*fonts, nullptr});
        else
            return std::holds_alternative<std::vector<std::int64_t>*>(m_target);
        return true;
    }

    bool EndArray(rapidjson::SizeType) {
        if (m_ignoredDepth > 0)
            --m_ignoredDepth;
        else if (std::holds_alternative<PlainFonts*>(m_target))
            m_open.pop_back();
        return true;
    }

private:
    /// An array that is being read, and its last font.
    struct Level {
        PlainFonts* fonts;
        PlainFont* font;
    };

    bool isIgnored() const { return std::holds_alternative<std::monostate>(m_target); }

    template <class Value>
    bool store(Value value) {
        using Field = std::conditional_t<std::is_same_v<Value, bool>, bool, std::string>;
        if (Field* const* const field = std::get_if<Field*>(&m_target)) {
            **field = value;
            return true;
        }
        return isIgnored();
    }

    bool addNumber(std::int64_t number) {
        if (std::int64_t* const* const field = std::get_if<std::int64_t*>(&m_target))
            **field = number;
        else if (const auto* const numbers = std::get_if<std::vector<std::int64_t>*>(&m_target))
            (*numbers)->push_back(number);
        else
            return isIgnored();
        return true;
    }

    std::vector<Level> m_open;      // from the outermost to the innermost
    std::size_t m_ignoredDepth = 0; // number of open arrays and objects with an unknown key
    /// What the next value is for; nothing after an unknown key.
    std::variant<std::monostate, std::int64_t*, bool*, std::string*, std::vector<std::int64_t>*,
                 PlainFonts*>
        m_target;
};

} // namespace

PlainFonts loadRapidJSONSAX(std::string text) {
    PlainFonts fonts;
    Handler handler(fonts);
    rapidjson::InsituStringStream stream(text.data());
    rapidjson::Reader reader;
    const rapidjson::ParseResult result =
        reader.Parse<rapidjson::kParseInsituFlag>(stream, handler);
    if (result.IsError())
        throw std::runtime_error(rapidjson::GetParseError_En(result.Code()));
    return fonts;
}
