#pragma once

#include "base/Text.h"

namespace railwright {

/// @return the code page in which documents hold their texts: the system's ANSI code page where it has one of
/// single bytes, Windows-1252 everywhere else.
const CodePage& SystemCodePage();

} // namespace railwright
