#include "platform/posix/FileLock.h"

#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <cerrno>
#include <thread>

#include <sys/file.h>

namespace railwright {

bool LockAtOnce(int descriptor, Lock lock) {
    int result = 0;
    do
        result = flock(descriptor, (lock == Lock::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

void LockPatiently(int descriptor, Lock lock, std::error_code& error, std::chrono::seconds longestWait) {
    using std::chrono::microseconds;
    constexpr microseconds first(100);
    constexpr microseconds longest(5000);
    const auto end = std::chrono::steady_clock::now() + longestWait;
    for (microseconds wait = first; !LockAtOnce(descriptor, lock); wait = std::min(2 * wait, longest)) {
        if (errno != EWOULDBLOCK)
            return;
        if (std::chrono::steady_clock::now() > end) {
            error = std::make_error_code(std::errc::resource_unavailable_try_again);
            return;
        }
        std::this_thread::sleep_for(wait);
    }
}

} // namespace railwright
