#pragma once

#include "platform/posix/RegistryTree.h"

#include <optional>
#include <span>

namespace railwright {

/// Reads what the registry editor exports, in both of its versions: "Windows Registry Editor Version 5.00" in
/// UTF-16LE and "REGEDIT4" in the code page. Lines that are neither key nor value are passed over.
/// @return nothing if the file does not begin as the editor's files do.
std::optional<RegistryTree> ParseRegistry(std::span<const std::uint8_t> file);

/// @return the whole of the tree as the registry editor exports it in version 5.00.
std::vector<std::uint8_t> FormatRegistry(const RegistryTree& tree);

} // namespace railwright
