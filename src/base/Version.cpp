#include "base/Version.h"

namespace railwright {

const std::string_view Version = RAILWRIGHT_VERSION;

} // namespace railwright
