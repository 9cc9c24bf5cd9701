#pragma once

#include <string>

namespace railwright {

/// @return Track as JSON, one member for each record, in UTF-8.
std::string DumpTrack();

/// @return Element as JSON, in UTF-8.
std::string DumpElement();

} // namespace railwright
