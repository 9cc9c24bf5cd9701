#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace railwright {

/// Shows the current activity on a line of the terminal and erases it on destruction. Until then, nothing
/// else may write to the terminal.
class Progress {
public:
    /// @param out null to show nothing.
    explicit Progress(std::ostream* out) : terminal(out) {}
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Shows the start of a phase.
    /// @param what the current activity, in ASCII.
    void Tell(const std::string& what);
    /// Shows one of many steps, at most ten of them a second.
    void TellStep(const std::string& what);

private:
    std::ostream* terminal;
    std::string shown;
    std::chrono::steady_clock::time_point last{};
};

} // namespace railwright
