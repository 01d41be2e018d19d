#include <VelmoCloudEntity/entity/Reply.hpp>

#include <PerchAppLibrary/text/Text.hpp>

#include <array>
#include <cstddef>

namespace VelmoCloudEntity {

using PerchAppLibrary::JSON;

namespace {

std::string sentenceOf(const ServiceError& error) {
    constexpr std::size_t mostCharacters = 200;
    const std::string text = error.text("En");
    const std::string sentence =
        "error" + (error.code.empty() ? "" : " " + error.code) + (text.empty() ? "" : ": " + text);
    return PerchAppLibrary::text::printable(sentence, mostCharacters);
}

/// In the order of JSON::Type.
constexpr std::array kinds{"a number",  "a string", "a Boolean", "an array",
                           "an object", "null",     "unknown"};

} // namespace

ReplyError::ReplyError(ServiceError error)
    : std::runtime_error(sentenceOf(error)), m_serviceError(std::move(error)) {}

void requireReply(const JSON& document, bool isList) {
    if (std::optional<ServiceError> error = VelmoCloudEntity::serviceError(document))
        throw ReplyError(*std::move(error));
    if (document.type() != (isList ? JSON::Type::array : JSON::Type::dictionary))
        throw ReplyError(std::string(isList ? "an array" : "an object") + " is expected, not " +
                         kinds[static_cast<std::size_t>(document.type())]);
}

bool beginsArray(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '[';
}

} // namespace VelmoCloudEntity
