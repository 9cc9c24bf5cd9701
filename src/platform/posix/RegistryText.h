#pragma once

#include "platform/posix/RegistryTree.h"

#include <optional>
#include <span>

namespace railwright {

/// Reads a file that the registry editor exported in version 5.00, in UTF-16LE or, without a byte order mark, in
/// the code page. Skips lines that are neither key nor value.
/// @return nothing if the file does not begin as the editor's files do.
std::optional<RegistryTree> ParseRegistry(std::span<const std::uint8_t> file);

/// @return the whole of the tree as the registry editor exports it in version 5.00.
std::vector<std::uint8_t> FormatRegistry(const RegistryTree& tree);

} // namespace railwright
