#pragma once

#include <string_view>

namespace railwright {

/// The program's version: three numbers separated by points.
extern const std::string_view Version;

} // namespace railwright
