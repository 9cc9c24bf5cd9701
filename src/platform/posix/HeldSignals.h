#pragma once

#include <array>
#include <csignal>

namespace railwright {

/// While it lives, the signals by which users and the system ask the process to end are held back. They are
/// delivered afterwards.
class HeldSignals {
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    static constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

    std::array<struct sigaction, Signals.size()> before{};
};

} // namespace railwright
