// Runs a fuzzer without libFuzzer, so that the tests run each with any compiler:
//   fuzz-NAME-replay RUNS [FILE...]    the files, then RUNS inputs of random bytes
#include "Input.hpp"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes randomBytes(unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(random() % (seed % 16 == 0 ? 4000 : 400));
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// Returns whether the input is without fault. Copies the input exactly, so a sanitizer sees reads
/// past its end.
bool isFine(const Bytes& bytes, const std::string& name) {
    try {
        (void)LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        return true;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), error.what());
        return false;
    }
}

} // namespace

int main(int argc, char** argv) {
    bool areFine = argc > 1;
    for (int index = 2; index < argc; ++index) {
        std::ifstream file(argv[index], std::ios::binary);
        const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
        areFine = isFine(bytes, argv[index]) && areFine;
    }
    const unsigned long runs = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 0;
    for (unsigned seed = 0; areFine && seed < runs; ++seed)
        areFine = isFine(randomBytes(seed), "seed " + std::to_string(seed));
    return areFine ? 0 : 1;
}
