#pragma once

#include "base/TextOutput.h"

namespace railwright {

/// Prints Track as JSON, one member for each record, in UTF-8.
void DumpTrack(TextOutput& out);

/// Prints Element as JSON, in UTF-8.
void DumpElement(TextOutput& out);

} // namespace railwright
