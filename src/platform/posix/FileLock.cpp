#include "platform/posix/FileLock.h"

#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include <sys/file.h>

namespace railwright {

void LockPatiently(int descriptor, std::error_code& error) {
    using std::chrono::microseconds;
    constexpr microseconds first(100);
    constexpr microseconds longest(5000);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
    for (microseconds wait = first; flock(descriptor, LOCK_EX | LOCK_NB) != 0;
         wait = std::min(2 * wait, longest)) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return;
        if (std::chrono::steady_clock::now() > end) {
            error = std::make_error_code(std::errc::resource_unavailable_try_again);
            return;
        }
        std::this_thread::sleep_for(wait);
    }
}

} // namespace railwright
