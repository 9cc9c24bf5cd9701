#pragma once

#include <string_view>

namespace railwright {

/// The program's version, three numbers with points between them.
extern const std::string_view Version;

} // namespace railwright
