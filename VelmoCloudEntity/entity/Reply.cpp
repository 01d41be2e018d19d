#include <VelmoCloudEntity/entity/Reply.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::JSON;

namespace {

std::string sentenceOf(const ServiceError& error) {
    const std::string text = error.text("En");
    return "error" + (error.code.empty() ? "" : " " + error.code) +
           (text.empty() ? "" : ": " + text);
}

} // namespace

ReplyError::ReplyError(ServiceError error)
    : std::runtime_error(sentenceOf(error)), m_serviceError(std::move(error)) {}

void requireReply(const JSON& document, bool isList) {
    if (std::optional<ServiceError> error = VelmoCloudEntity::serviceError(document))
        throw ReplyError(*std::move(error));
    if (isList && document.type() != JSON::Type::array)
        throw ReplyError("the reply is no list");
    if (!isList && document.type() != JSON::Type::dictionary)
        throw ReplyError("the reply is no object");
}

bool beginsArray(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '[';
}

} // namespace VelmoCloudEntity
