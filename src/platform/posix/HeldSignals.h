#pragma once

#include <array>
#include <csignal>

namespace railwright {

/// Holds back the signals that ask the process to end. They are delivered on destruction.
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
