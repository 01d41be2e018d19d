#pragma once

#include "ExitStatus.hpp"

#include <functional>

namespace CLI {
class App;
} // namespace CLI

namespace velmo {

/// What a command line asks for; a command puts its work here when its name is on the line.
using Work = std::function<ExitStatus()>;

// Each adds its command to the application: name, arguments, help, and the work.

void addTree(CLI::App& application, Work& work);
void addList(CLI::App& application, Work& work);
void addLocate(CLI::App& application, Work& work);
void addRead(CLI::App& application, Work& work);
void addExport(CLI::App& application, Work& work);

/// Adds the option that every command takes.
void addJSONFlag(CLI::App& command, bool& asJSON);

} // namespace velmo
