#include "platform/posix/HeldSignals.h"

#include <atomic>
#include <cstdint>

namespace railwright {
namespace {

/// One bit per pending signal.
std::atomic<std::uint64_t> came = 0;
static_assert(decltype(came)::is_always_lock_free);

std::uint64_t BitOf(int signal) {
    return std::uint64_t{1} << static_cast<unsigned>(signal);
}

void Note(int signal) {
    came |= BitOf(signal);
}

} // namespace

// A signal mask would affect only one thread, and the window has several.
HeldSignals::HeldSignals() {
    struct sigaction note {};
    note.sa_handler = Note;
    note.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i)
        sigaction(Signals[i], &note, &before[i]);
}

HeldSignals::~HeldSignals() {
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals[i], &before[i], nullptr);
        if ((came.fetch_and(~BitOf(Signals[i])) & BitOf(Signals[i])) != 0)
            (void)std::raise(Signals[i]);
    }
}

} // namespace railwright
