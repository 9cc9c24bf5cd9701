#pragma once

#include "base/TextOutput.h"

namespace railwright {

/// Prints Track as JSON in UTF-8, with one member per record.
void DumpTrack(TextOutput& out);

/// Prints Element as JSON in UTF-8.
void DumpElement(TextOutput& out);

} // namespace railwright
