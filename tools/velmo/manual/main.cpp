// velmo-manual: prints the man page of velmo or the completions of a shell.
#include "CommandLine.hpp"

#include "../Application.hpp"
#include "../Terminal.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstdio>
#include <exception>
#include <map>

int main(int argc, char** argv) {
    const std::map<std::string, std::string (*)(const velmo::CommandLine&)> makers{
        {"man", &velmo::manPage},
        {"bash", &velmo::bashCompletion},
        {"fish", &velmo::fishCompletion},
        {"zsh", &velmo::zshCompletion}};
    try {
        velmo::Action selected;
        velmo::print(makers.at(argc == 2 ? argv[1]
                                         : "")(velmo::describe(*velmo::makeApplication(selected))));
        return 0;
    } catch (const std::exception&) {
        std::fputs("Usage: velmo-manual man|bash|fish|zsh\n", stderr);
        return 2;
    }
}
