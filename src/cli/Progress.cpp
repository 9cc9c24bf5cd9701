#include "cli/Progress.h"

#include <algorithm>
#include <chrono>
#include <system_error>

namespace railwright {

constexpr std::chrono::milliseconds Patience{1000};
constexpr std::chrono::milliseconds BetweenLines{100};

Progress::Progress(std::ostream* out) : terminal(out) {
    if (terminal == nullptr)
        return;
    try {
        watcher = std::thread([this] { Watch(); });
    } catch (const std::system_error&) { // the work continues without progress messages
    }
}

Progress::~Progress() {
    if (!watcher.joinable())
        return;
    {
        const std::lock_guard lock(mutex);
        isOver = true;
    }
    change.notify_one();
    watcher.join();
}

void Progress::Tell(std::string what) {
    const std::lock_guard lock(mutex);
    current = std::move(what);
}

void Progress::Watch() {
    std::unique_lock lock(mutex);
    for (auto pause = Patience; !change.wait_for(lock, pause, [this] { return isOver; });
         pause = BetweenLines)
        if (shown != current)
            Show(current);
    if (!shown.empty()) {
        Show("");
        *terminal << '\r' << std::flush;
    }
}

void Progress::Show(const std::string& line) {
    const std::size_t rest = std::max(shown.size(), line.size()) - line.size();
    *terminal << '\r' << line << std::string(rest, ' ') << std::flush;
    shown = line;
}

} // namespace railwright
