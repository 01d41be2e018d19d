// Times a search by key after a load: in the mode "first" the first one, in "next" the second.
#include "OurClient.hpp"
#include "Program.hpp"

using VelmoCloudEntity::FontList;

namespace {

void run(const std::string& mode, const std::string& file) {
    const FontList fonts = loadOurs(readFile(file));
    const auto search = [&] { FontList::getFontByKey(fonts.List(), "sans", true); };
    if (mode == "next")
        search();
    print("seconds", secondsOf(search));
}

} // namespace

int main(int argc, char** argv) { return runProgram(argc, argv, &run); }
