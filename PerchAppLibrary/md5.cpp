#include <PerchAppLibrary/md5.hpp>

#include <cstdint>

#include <sys/types.h>

#include <md5.h>

namespace PerchAppLibrary {

std::string md5(std::string_view text) {
    std::string digest(MD5_DIGEST_STRING_LENGTH, '\0');
    MD5Data(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), digest.data());
    digest.resize(MD5_DIGEST_STRING_LENGTH - 1); // without the terminating NUL
    return digest;
}

} // namespace PerchAppLibrary
