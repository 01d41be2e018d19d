#include "Commands.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace velmo {

void addJSONFlag(CLI::App& command, bool& asJSON) {
    command.add_flag("--json", asJSON, "Print one JSON document");
}

} // namespace velmo
