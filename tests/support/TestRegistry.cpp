#include "tests/support/TestRegistry.h"

#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
#endif

namespace railwright::testing {

#ifdef _WIN32

namespace {

constexpr const char* Place = "Software\\Railwright Tests";

void StandIn(HKEY root, const char* name) {
    HKEY place = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, (std::string(Place) + '\\' + name).c_str(), &place);
    RegOverridePredefKey(root, place);
    RegCloseKey(place);
}

} // namespace

TestRegistry::TestRegistry() {
    RegDeleteTreeA(HKEY_CURRENT_USER, Place); // left by an aborted run
    StandIn(HKEY_CLASSES_ROOT, "Classes");
    StandIn(HKEY_CURRENT_USER, "User");
}

TestRegistry::~TestRegistry() {
    for (HKEY const root : {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER})
        RegOverridePredefKey(root, nullptr);
    RegDeleteTreeA(HKEY_CURRENT_USER, Place);
}

#else

TestRegistry::TestRegistry() {
    setenv("RAILWRIGHT_REGISTRY", File().c_str(), 1);
}

TestRegistry::~TestRegistry() {
    unsetenv("RAILWRIGHT_REGISTRY");
}

#endif

} // namespace railwright::testing
