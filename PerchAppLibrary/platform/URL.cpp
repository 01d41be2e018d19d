#include <PerchAppLibrary/platform/URL.hpp>

#include <PerchAppLibrary/text/Text.hpp>

#include <boost/url/encode.hpp>
#include <boost/url/parse.hpp>
#include <boost/url/rfc/pchars.hpp>

namespace PerchAppLibrary {

void assign(Value& target, const URL& url) { assign(target, std::string_view(url.buffer())); }

namespace url {

std::string percentEncodedForFragment(std::string_view text) {
    constexpr auto fragmentCharacters = boost::urls::pchars + '/' + '?';
    const std::string clean = text::wellFormed(text);
    // The function of Boost.URL that returns a string is noexcept, although it allocates.
    std::string encoded(boost::urls::encoded_size(clean, fragmentCharacters), '\0');
    boost::urls::encode(encoded.data(), encoded.size(), clean, fragmentCharacters);
    return encoded;
}

std::optional<URL> parse(std::string_view text) {
    const auto parsed = boost::urls::parse_uri_reference(text);
    // Behind an authority, a path must be empty or begin with a slash (RFC 3986, section 3). The
    // parser accepts "//host:port" as a host and the path "port".
    if (!parsed || (parsed->has_authority() && !parsed->encoded_path().empty() &&
                    !parsed->encoded_path().starts_with('/')))
        return std::nullopt;
    return URL(*parsed);
}

} // namespace url
} // namespace PerchAppLibrary
