#pragma once

#include <chrono>
#include <system_error>

namespace railwright {

/// A shared lock excludes exclusive locks. An exclusive lock excludes all others.
enum class Lock { Shared, Exclusive };

constexpr std::chrono::seconds LongestWait(3);

/// Locks an open file or folder until it is closed. The lock is advisory: it affects only processes that lock
/// the file too. Waits while another process holds the lock, then fails with resource_unavailable_try_again.
/// Does nothing on a file system without locks.
void LockPatiently(int descriptor, Lock lock, std::error_code& error,
                   std::chrono::seconds longestWait = LongestWait);

/// Locks without waiting. @return whether it is locked. If another process holds the lock, errno is
/// EWOULDBLOCK.
bool LockAtOnce(int descriptor, Lock lock);

} // namespace railwright
