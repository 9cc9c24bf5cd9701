#pragma once

#include "base/NumberFormat.h"

namespace railwright {

/// @return the number separators that the user has chosen in the system. The C locale counts as "," and ".".
NumberSeparators UserNumberSeparators();

} // namespace railwright
