#pragma once

#include <optional>
#include <string>
#include <vector>

/// A program that ran.
struct ChildProcess {
    /// Runs a program of this build, such as "velmo-load-Qt", and waits for its end. Throws
    /// std::runtime_error if it fails.
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments);

    /// Returns the value in a line "NAME VALUE" of the output, if there is one.
    std::optional<double> figure(const std::string& name) const;

    std::string output;
    double seconds; // from its start to its end
};
