#pragma once

#include <string>
#include <vector>

namespace railwright {

/// @return the arguments behind the program's name, as UTF-8, and readies standard output for UTF-8 text with
/// LF line ends. `count` and `arguments` are those of main.
std::vector<std::string> StartCommandLine(int count, char** arguments);

} // namespace railwright
