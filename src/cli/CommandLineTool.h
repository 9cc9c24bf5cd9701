#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace railwright {

/// Runs railwright-cli.
/// @param words arguments after the program's name, in UTF-8.
/// @param terminal stream for progress messages, or null.
/// @return the exit status: 0 on success; 1 if a file cannot be read or written, or a step does not fit the
/// document; 2 after a usage error.
int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors,
                       std::ostream* terminal = nullptr);

/// Calls `describe` with the command line as the parser knows it.
void DescribeCommandLine(const std::function<void(const CLI::App&)>& describe);

} // namespace railwright
