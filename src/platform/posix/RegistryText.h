#pragma once

#include "platform/posix/RegistryTree.h"

#include <optional>
#include <span>

namespace railwright {

/// Parses a file that the registry editor exported in version 5.00. The file is in UTF-16LE or, without a
/// byte order mark, in the code page. Skips lines that are neither key nor value.
/// @return nothing if the file lacks the header of that version.
std::optional<RegistryTree> ParseRegistry(std::span<const std::uint8_t> file);

/// @return the tree in the format of the registry editor, version 5.00.
std::vector<std::uint8_t> FormatRegistry(const RegistryTree& tree);

} // namespace railwright
