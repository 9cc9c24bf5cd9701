#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace railwright {

/// Runs railwright-cli.
/// @param words those behind the program's name, UTF-8.
/// @return the exit status: 0 done; 1 a file could not be read or written, or a step does not fit the
/// document; 2 the arguments are no command.
int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors);

} // namespace railwright
