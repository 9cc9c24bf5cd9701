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
/// @param words those behind the program's name, UTF-8.
/// @param terminal where a user waits who wants to be told how far it is; none if there is no such user.
/// @return the exit status: 0 done; 1 a file could not be read or written, or a step does not fit the
/// document; 2 the arguments are no command.
int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors,
                       std::ostream* terminal = nullptr);

/// Shows railwright-cli's commands and options as the parser knows them.
void DescribeCommandLine(const std::function<void(const CLI::App&)>& describe);

} // namespace railwright
