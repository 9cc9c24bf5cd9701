#pragma once

#include <chrono>
#include <system_error>

namespace railwright {

/// Shared locks exclude exclusive ones, exclusive locks exclude all others.
enum class Lock { Shared, Exclusive };

constexpr std::chrono::seconds LongestWait(3);

/// Locks an open file or folder until it is closed, against all who lock it in this way. Waits if another
/// process has the lock, then fails with resource_unavailable_try_again. Does nothing on a file system
/// without locks.
void LockPatiently(int descriptor, Lock lock, std::error_code& error,
                   std::chrono::seconds longestWait = LongestWait);

/// Locks without waiting. @return whether it is locked; otherwise errno is EWOULDBLOCK if another has the
/// lock.
bool LockAtOnce(int descriptor, Lock lock);

} // namespace railwright
