#pragma once

#include <string>
#include <vector>

namespace railwright {

/// Returns the arguments of main after the program's name, as UTF-8. Sets standard output and standard error
/// to UTF-8 text with LF line ends. Expands "*" and "?" to the matching files if the user's shell does not do
/// that.
std::vector<std::string> StartCommandLine(int count, char** arguments);

/// Returns whether standard error is a terminal.
bool ErrorsGoToTerminal();

/// Returns everything after the program's name as one UTF-8 text. On Windows, this is the original command
/// line without double quotes. Elsewhere, it is the arguments joined by blanks.
std::string CommandLineText(int count, char** arguments);

} // namespace railwright
