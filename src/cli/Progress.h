#pragma once

#include <condition_variable>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace railwright {

/// Shows the current activity on a line of the terminal once it takes longer than a second. Erases the line
/// on destruction. Until then, nothing else may write to the terminal.
class Progress {
public:
    /// @param terminal null to show nothing.
    explicit Progress(std::ostream* terminal);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// @param what the current activity, in ASCII.
    void Tell(std::string what);

private:
    void Watch();
    void Show(const std::string& line);

    std::ostream* terminal;
    std::mutex mutex; // guards the members below
    std::condition_variable change;
    std::string current;
    std::string shown;
    bool isOver = false;
    std::thread watcher;
};

} // namespace railwright
