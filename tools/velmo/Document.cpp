#include "Document.hpp"

#include "ExitStatus.hpp"

#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace velmo {
namespace {

using PerchAppLibrary::JSON;

[[noreturn]] void failToRead(const std::string& file, int error) {
    throw Failure(nameOf(file) + ": cannot be read: " + std::generic_category().message(error));
}

/// Returns the size of a regular file, or 0 for any other.
std::uint64_t sizeOf(std::FILE* stream) {
    struct stat status{};
    const bool isRegular = fstat(fileno(stream), &status) == 0 && S_ISREG(status.st_mode);
    return isRegular ? static_cast<std::uint64_t>(status.st_size) : 0;
}

/// Returns where the content ends what can be parsed: behind its first character if no document
/// begins with that, or behind the first zero byte after `parsed` bytes. Then the rest, which may
/// have no end, need not be read. Otherwise returns npos.
std::size_t endOfParsable(std::string_view content, std::size_t parsed) {
    constexpr std::string_view firsts = "[{\"-0123456789tfn";
    const std::size_t first = content.find_first_not_of(" \t\r\n");
    if (first != std::string::npos && firsts.find(content[first]) == std::string::npos)
        return first + PerchAppLibrary::text::firstCodePoint(content.substr(first)).size();
    const std::size_t zero = content.find('\0', parsed);
    return zero == std::string::npos ? zero : zero + 1;
}

/// Returns the content of the stream, or its begin through the first byte that cannot be in a
/// document. Throws Failure if it is longer than a text that can be parsed.
std::string readAll(const std::string& file, std::FILE* stream, Progress& progress) {
    constexpr std::uint64_t maximum = 0xFFFF'FFFF;
    constexpr std::size_t padding = 64; // with this capacity, JSON::parse() does not copy the text
    const std::uint64_t expected = sizeOf(stream);
    std::string content;
    progress.expect(expected);
    std::array<char, 1U << 16U> block{};
    while (std::feof(stream) == 0 && std::ferror(stream) == 0) {
        const std::size_t before = content.size();
        content.append(block.data(), std::fread(block.data(), 1, block.size(), stream));
        if (const std::size_t end = endOfParsable(content, before); end != std::string::npos) {
            content.resize(end);
            return content;
        }
        if (std::max<std::uint64_t>(content.size(), expected) > maximum)
            throw Failure(nameOf(file) + ": is too long: 4 GB can be parsed at most");
        if (before == 0)
            content.reserve(expected + padding);
        progress.setRead(content.size());
    }
    if (std::ferror(stream) != 0)
        failToRead(file, errno);
    return content;
}

/// Returns the content of the file. "-" is standard input, which can be read once.
std::string readFile(const std::string& file, Progress& progress) {
    if (file == "-" && std::feof(stdin) != 0)
        throw Failure("standard input can be only one of the files");
    if (file == "-")
        return readAll(file, stdin, progress);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "rb"),
                                                                 &std::fclose);
    if (!stream)
        failToRead(file, errno);
    return readAll(file, stream.get(), progress);
}

} // namespace

std::string nameOf(const std::string& file) { return file == "-" ? "standard input" : file; }

void failForMemory(const std::string& file) { throw Failure(nameOf(file) + ": not enough memory"); }

JSON readDocument(const std::string& file, Progress& progress) {
    try {
        std::string content = readFile(file, progress);
        progress.begin("parsing");
        return JSON::parse(std::move(content));
    } catch (const JSON::ParseError& error) {
        throw Failure(nameOf(file) + ": " + error.what());
    } catch (const std::bad_alloc&) {
        failForMemory(file);
    }
}

} // namespace velmo
