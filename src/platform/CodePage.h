#pragma once

#include "base/Text.h"

namespace railwright {

/// Returns the code page of texts in documents: the system's ANSI code page if it is a single-byte one,
/// otherwise Windows-1252.
const CodePage& SystemCodePage();

} // namespace railwright
