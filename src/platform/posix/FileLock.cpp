#include "platform/posix/FileLock.h"

#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include <sys/file.h>

namespace railwright {

void LockPatiently(int descriptor, std::error_code& error) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 3s;
    for (auto wait = 100us; flock(descriptor, LOCK_EX | LOCK_NB) != 0; wait = std::min(2 * wait, 5000us)) {
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
