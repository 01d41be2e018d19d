#include "Benchmarks.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace json = boost::json;
using Member = std::pair<std::string, json::value>;
using Members = std::vector<Member>;

/// Reshapes fonts one after the other, each differently.
class Reshaper {
public:
    explicit Reshaper(Shape shape) : m_shape(shape) {}

    void reshapeAll(json::array& fonts) {
        for (json::value& font : fonts)
            reshape(font.as_object());
    }

private:
    void reshape(json::object& font) {
        if (json::value* const children = font.if_contains("Children"))
            reshapeAll(children->as_array());
        Members members;
        for (const auto& [key, value] : font)
            members.emplace_back(key, value);
        if (m_shape == Shape::shuffledKeys)
            std::ranges::shuffle(members, m_random);
        else if (m_shape == Shape::missingKeys)
            removeThird(members);
        else
            addUnknown(members);
        font.clear();
        for (const auto& [key, value] : members)
            font.emplace(key, value);
    }

    /// Keeps what makes a group.
    void removeThird(Members& members) {
        std::size_t count = m_random() % 3;
        std::erase_if(members, [&count](const Member& member) {
            return member.first != "IsGroup" && member.first != "Children" && count++ % 3 == 0;
        });
    }

    void addUnknown(Members& members) {
        const json::value values[] = {42,
                                      -1.5,
                                      true,
                                      nullptr,
                                      "a text",
                                      {1, 2, 3},
                                      {{"name", "x"}, {"sizes", {8, 12}}},
                                      {{{"from", 1}}, {{"from", 2}, {"to", nullptr}}}};
        int number = 0;
        for (const json::value& value : values) {
            const auto place =
                members.begin() + static_cast<std::ptrdiff_t>(m_random() % (members.size() + 1));
            members.emplace(place, "Unknown" + std::to_string(++number), value);
        }
    }

    Shape m_shape;
    std::mt19937_64 m_random{42};
};

/// Returns the JSON with one value in a line, indented by two spaces.
std::string prettyPrinted(const std::string& text) {
    std::string pretty;
    std::string line = "\n";
    bool isInString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char byte = text[at];
        if (byte == '\\') {
            pretty.append(text, at++, 2);
            continue;
        }
        isInString = isInString != (byte == '"');
        if (!isInString && (byte == '}' || byte == ']')) {
            line.resize(line.size() - 2);
            pretty += line;
        }
        pretty += byte;
        if (!isInString && (byte == '{' || byte == '['))
            pretty += line.append("  ");
        else if (!isInString && byte == ',')
            pretty += line;
        else if (!isInString && byte == ':')
            pretty += ' ';
    }
    return pretty;
}

} // namespace

std::string reshaped(const std::string& text, Shape shape) {
    json::array fonts = json::parse(text).as_array();
    if (shape == Shape::prettyPrinted)
        return prettyPrinted(json::serialize(fonts));
    Reshaper(shape).reshapeAll(fonts);
    return json::serialize(fonts);
}
