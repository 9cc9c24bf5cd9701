#include "install/mWinRegistry.h"

namespace railwright {

bool ReadRegistryValue(std::uint32_t /*hRoot*/, const std::string& /*sKey*/,
                       const std::string& /*sValueName*/, std::string& /*sResult*/) {
    return false;
}

} // namespace railwright
