#include <PerchAppLibrary/fatalError.hpp>

#include <cstdio>
#include <cstdlib>

namespace PerchAppLibrary {

void fatalError(std::string_view message) noexcept {
    std::fputs("Fatal error: ", stderr);
    // A name in the message may hold line feeds, but the message is one line.
    for (const char byte : message)
        std::fputc(static_cast<unsigned char>(byte) < 0x20 ? ' ' : byte, stderr);
    std::fputc('\n', stderr);
    std::abort();
}

} // namespace PerchAppLibrary
