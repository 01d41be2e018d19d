#include <VelmoCloudEntity/entity/Reply.hpp>

#include <PerchAppLibrary/text/Text.hpp>

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

const char* kindOf(const JSON& json) {
    switch (json.type()) {
    case JSON::Type::array:
        return "an array";
    case JSON::Type::dictionary:
        return "an object";
    case JSON::Type::string:
        return "a string";
    case JSON::Type::number:
        return "a number";
    case JSON::Type::boolean:
        return "a Boolean";
    default:
        return "null";
    }
}

} // namespace

ReplyError::ReplyError(ServiceError error)
    : std::runtime_error(sentenceOf(error)), m_serviceError(std::move(error)) {}

void requireReply(const JSON& document, bool isList) {
    if (std::optional<ServiceError> error = VelmoCloudEntity::serviceError(document))
        throw ReplyError(*std::move(error));
    if (document.type() != (isList ? JSON::Type::array : JSON::Type::dictionary))
        throw ReplyError(std::string(isList ? "an array" : "an object") + " is expected, not " +
                         kindOf(document));
}

bool beginsArray(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '[';
}

} // namespace VelmoCloudEntity
