// Times the loads of one side in a process of its own. Built once for each side: VELMO_LOAD is its
// loader, such as loadOnDemand.
#include "Program.hpp"

#ifdef VELMO_PLAIN
#include "PlainClient.hpp"
#else
#include "OurClient.hpp"
#endif

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using Loaded = decltype(VELMO_LOAD(std::string()));

double secondsOfLoad(std::string text, Loaded& fonts) {
    return secondsOf([&] { fonts = VELMO_LOAD(std::move(text)); });
}

/// Prints the time of a first load.
void first(const std::string& file) {
    Loaded fonts;
    print("seconds", secondsOfLoad(readFile(file), fonts));
}

/// Prints the heap bytes of the fonts, and the time of a load after others. The first loads are not
/// timed, since the heap grows. The bytes are counted in one of them: counting joins free chunks of
/// the heap, which changes the next load.
void warm(const std::string& file) {
    const std::string text = readFile(file);
    Loaded fonts;
    const auto loadAgain = [&] {
        fonts = Loaded();
        return secondsOfLoad(padded(text), fonts);
    };
    loadAgain();
    fonts = Loaded();
    const std::size_t before = heapInUse();
    loadAgain();
    print("bytes", static_cast<double>(heapInUse() - before));
    loadAgain();
    loadAgain();
    print("seconds", medianSecondsOf(loadAgain));
}

/// Prints how long the destruction of the fonts takes.
void takeDown(const std::string& file) {
    Loaded fonts = VELMO_LOAD(readFile(file));
    print("seconds", secondsOf([&] { fonts = Loaded(); }));
}

/// The start of a client: loads, activates fonts, searches and prints what it finds. Prints the
/// peak memory last.
void startClient(const std::string& file) {
    const Loaded fonts = VELMO_LOAD(readFile(file));
    std::vector<std::int64_t> activated;
    for (std::int64_t id = 1; id <= 6000; id += 3)
        activated.push_back(id);
    activate(fonts, activated);
    const std::string found = textOfFound(fonts, "sans");
    std::fwrite(found.data(), 1, found.size(), stdout);
    print("peak", peakMemory());
}

/// Prints a hash of all fields.
void check(const std::string& file) { std::printf("%zu\n", digestOf(VELMO_LOAD(readFile(file)))); }

void run(const std::string& mode, const std::string& file) {
    if (mode == "first")
        first(file);
    else if (mode == "warm")
        warm(file);
    else if (mode == "teardown")
        takeDown(file);
    else if (mode == "process")
        startClient(file);
    else if (mode == "check")
        check(file);
    else
        throw std::runtime_error("unknown mode " + mode);
}

} // namespace

int main(int argc, char** argv) { return runProgram(argc, argv, &run); }
