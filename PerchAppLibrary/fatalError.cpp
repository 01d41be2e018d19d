#include <PerchAppLibrary/fatalError.hpp>

#include <cstdio>
#include <cstdlib>

namespace PerchAppLibrary {

void fatalError(std::string_view message) noexcept {
    std::fputs("Fatal error: ", stderr);
    for (const char byte :
         message) // a name in the message may hold anything, but the message is one line
        std::fputc(static_cast<unsigned char>(byte) < 0x20 ? ' ' : byte, stderr);
    std::fputc('\n', stderr);
    std::abort();
}

} // namespace PerchAppLibrary
