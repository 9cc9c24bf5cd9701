#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>

namespace railwright::testing {

/// An empty registry of its own for one test: a file, or on Windows a key of the user's that stands in for
/// the roots. It is gone at the test's end.
class TestRegistry {
public:
    TestRegistry();
    ~TestRegistry();
    TestRegistry(const TestRegistry&) = delete;
    TestRegistry& operator=(const TestRegistry&) = delete;

    /// The file, where there is one.
    std::string File() const { return folder.File("data/registry.reg"); }

private:
    TemporaryFolder folder;
};

} // namespace railwright::testing
