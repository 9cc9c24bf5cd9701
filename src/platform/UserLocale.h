#pragma once

#include "base/NumberFormat.h"

namespace railwright {

/// Returns the number separators of the user's system settings. For the C locale, they are "," and ".".
NumberSeparators UserNumberSeparators();

} // namespace railwright
