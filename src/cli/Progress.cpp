#include "cli/Progress.h"

#include <algorithm>

namespace railwright {

Progress::~Progress() {
    if (shown.empty())
        return;
    Tell("");
    *terminal << '\r' << std::flush;
}

void Progress::Tell(const std::string& what) {
    if (terminal == nullptr)
        return;
    const std::size_t rest = std::max(shown.size(), what.size()) - what.size();
    *terminal << '\r' << what << std::string(rest, ' ') << std::flush;
    shown = what;
    last = std::chrono::steady_clock::now();
}

void Progress::TellStep(const std::string& what) {
    constexpr std::chrono::milliseconds between(100);
    if (std::chrono::steady_clock::now() - last >= between)
        Tell(what);
}

} // namespace railwright
