#include "Program.hpp"

#include <malloc.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

std::string readFile(const std::string& file) {
    const std::size_t size = std::filesystem::file_size(file);
    std::string text;
    text.reserve(size + 64);
    text.resize(size);
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(text.data(), static_cast<std::streamsize>(size)))
        throw std::runtime_error("cannot read " + file);
    return text;
}

std::string padded(const std::string& text) {
    std::string copy;
    copy.reserve(text.size() + 64);
    copy = text;
    return copy;
}

void keepFreedMemory() {
    mallopt(M_MMAP_MAX, 0);        // NOLINT(concurrency-mt-unsafe): no thread runs yet
    mallopt(M_TRIM_THRESHOLD, -1); // NOLINT(concurrency-mt-unsafe)
}

std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double peakMemory() {
    // Not by getrusage(), whose figure includes the parent before exec().
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::stod(line.substr(6)) * 1024;
    return 0;
}

void print(const char* name, double value) { std::printf("%s %.9g\n", name, value); }

int runProgram(int argc, char** argv, void (*run)(const std::string&, const std::string&)) {
    try {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        if (arguments.size() < 2)
            throw std::runtime_error("needs MODE FILE [--kept-heap]");
        if (arguments.size() > 2 && arguments[2] == "--kept-heap")
            keepFreedMemory();
        run(arguments[0], arguments[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
