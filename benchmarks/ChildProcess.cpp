#include "ChildProcess.hpp"

#include "programs/Program.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace {

/// Starts a program whose output goes to the descriptor.
pid_t start(const std::string& program, const std::vector<std::string>& arguments, int output) {
    const std::string path = VELMO_PROGRAMS "/" + program;
    std::vector<char*> words{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int error = posix_spawn(&child, path.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("cannot start " + path);
    return child;
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 65536> buffer;
    while (true) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count <= 0)
            return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments) {
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    int status = 0;
    seconds = secondsOf([&] {
        const pid_t child = start(program, arguments, pipe[1]);
        close(pipe[1]);
        output = readAll(pipe[0]);
        waitpid(child, &status, 0);
    });
    close(pipe[0]);
    if (status != 0)
        throw std::runtime_error(program + " failed");
}

std::optional<double> ChildProcess::figure(const std::string& name) const {
    const std::size_t found = ("\n" + output).rfind("\n" + name + " ");
    if (found == std::string::npos)
        return std::nullopt;
    return std::stod(output.substr(found + name.size() + 1));
}
