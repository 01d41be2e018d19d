#pragma once

#include <VelmoCloudEntity/entity/ServiceError.hpp>

#include <PerchAppLibrary/json/JSON.hpp>

#include <concepts>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace VelmoCloudEntity {

/// Thrown by parseReply() for a reply that is not what was asked for. what() is a sentence in
/// English, of one line: a long message of the service is shortened, its control characters are
/// escaped.
class ReplyError : public std::runtime_error {
public:
    explicit ReplyError(ServiceError error);
    explicit ReplyError(const std::string& reason) : std::runtime_error(reason) {}

    /// The error that the service reports, or nullopt for a document of another kind.
    const std::optional<ServiceError>& serviceError() const noexcept { return m_serviceError; }

private:
    std::optional<ServiceError> m_serviceError;
};

/// @cond what parseReply() uses
/// Throws ReplyError for a document that is a service's error, or that is not an array (`isList`)
/// or not an object.
void requireReply(const PerchAppLibrary::JSON& document, bool isList);

/// Returns whether a JSON text begins an array. Constant time, white space aside.
bool beginsArray(std::string_view text) noexcept;
/// @endcond

/// Returns T::parse(text, limits) for a reply of the service, where T is a list wrapper or a
/// record. Throws JSON::ParseError if the text is malformed or exceeds the limits, and ReplyError
/// unless it is an array for a list, or for a record an object that reports no error. T::parse()
/// makes an empty list or a record of such a reply. As fast as T::parse().
///
///     try {
///         fonts = parseReply<FontList>(text, {.elements = 8'000'000});
///     } catch (const ReplyError& error) {
///         if (error.serviceError())
///             show(error.serviceError()->text("En"));
///     }
template <class T, class Text>
auto parseReply(Text&& text, const PerchAppLibrary::JSON::Limits& limits = {}) {
    using PerchAppLibrary::JSON;
    if constexpr (std::derived_from<T, PerchAppLibrary::BaseEntity>) {
        const JSON document = JSON::parse(std::forward<Text>(text), limits);
        requireReply(document, false);
        return T::create(document);
    } else {
        if (!beginsArray(text))
            requireReply(JSON::parse(std::string_view(text), limits), true);
        return T::parse(std::forward<Text>(text), limits);
    }
}

} // namespace VelmoCloudEntity
