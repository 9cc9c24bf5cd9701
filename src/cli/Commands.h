#pragma once

#include "base/NumberFormat.h"
#include "base/TextOutput.h"
#include "platform/UserLocale.h"

#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// An error with one file, named as the user typed it. Ends the work on that file.
struct FileFailure {
    std::string File;
    std::string Reason;
};

/// Thrown if standard output cannot be written. Ends the work on all files.
struct OutputFailure {};

/// The arguments after the command's name.
struct Arguments {
    std::vector<std::string> Files;
    std::vector<std::string> Steps;
    std::string Target;
    NumberSeparators Separators = UserNumberSeparators();
    /// Stream for progress messages, or null.
    std::ostream* Terminal = nullptr;
    /// Prints a warning about a file on standard error.
    std::function<void(const std::string& file, std::string_view message)> Warn;
};

/// A command of railwright-cli.
struct Command {
    const char* Name;
    const char* Help;
    /// Arguments of the example in the help.
    const char* Example;
    /// Name of the argument, and whether it can be repeated.
    const char* On = "FILE";
    bool OnMany = false;
    /// Help text of option -o, and FILE or FOLDER. Empty if the command lacks the option.
    const char* Target = "";
    const char* TargetKind = "";
    bool HasSteps = false;
    bool HasSeparators = false;
    /// Prints failures as results on standard output.
    bool TellsFailures = false;
    /// Throws FileFailure.
    void (*Work)(const std::string& file, const Arguments& arguments, TextOutput& out);
};

/// Returns all commands, in the order of the help.
std::span<const Command> Commands();

} // namespace railwright
