#pragma once

#include <string>
#include <vector>

namespace railwright {

/// @return the arguments behind the program's name, as UTF-8, and readies standard output and standard error
/// for UTF-8 text with LF line ends. An argument with "*" or "?" stands for the files it fits, where the
/// user's shell leaves that to the program. `count` and `arguments` are those of main.
std::vector<std::string> StartCommandLine(int count, char** arguments);

/// @return whether a user sees standard error right away, on a terminal.
bool ErrorsGoToTerminal();

/// @return all that stands behind the program's name as one UTF-8 text: on Windows as it was given, without
/// its double quotes, elsewhere the arguments with a blank between each two.
std::string CommandLineText(int count, char** arguments);

} // namespace railwright
