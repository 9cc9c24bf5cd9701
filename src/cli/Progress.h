#pragma once

#include <condition_variable>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace railwright {

/// Tells a user who has waited for a second what the program is at, in a line of the terminal that is gone
/// in the end. While it lives, nobody else writes there.
class Progress {
public:
    /// @param terminal none if there is nobody to be told.
    explicit Progress(std::ostream* terminal);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// @param what it is at now, in ASCII.
    void Tell(std::string what);

private:
    void Watch();
    void Show(const std::string& line);

    std::ostream* terminal;
    std::mutex mutex; // for what follows
    std::condition_variable change;
    std::string current;
    std::string shown;
    bool isOver = false;
    std::thread watcher;
};

} // namespace railwright
