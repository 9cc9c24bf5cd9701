#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>

namespace railwright::testing {

/// An empty registry for one test, deleted on destruction: a file or, on Windows, a key of the user that
/// replaces the roots.
class TestRegistry {
public:
    TestRegistry();
    ~TestRegistry();
    TestRegistry(const TestRegistry&) = delete;
    TestRegistry& operator=(const TestRegistry&) = delete;

    /// The file, if there is one.
    std::string File() const { return folder.File("data/registry.reg"); }

private:
    TemporaryFolder folder;
};

} // namespace railwright::testing
