#pragma once

#include "Input.hpp"

#include <string>
#include <vector>

/// Makes texts of characters that meet in one name with difficulties: parts, cases and equivalent
/// spellings of each other.
class Texts {
public:
    explicit Texts(Input& choices);

    std::string fresh();

    /// Returns the text in another spelling or case, or without one of its bytes.
    std::string respelled(std::string text);

    /// Returns a part of the text, which may begin or end inside a decomposed character.
    std::string part(const std::string& text);

private:
    Input& input;
    std::vector<std::string> alphabet;
};
