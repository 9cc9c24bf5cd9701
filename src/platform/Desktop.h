#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <string>

namespace railwright {

/// A window as the platform numbers it.
using WindowHandle = std::intptr_t;
inline constexpr WindowHandle NoWindow = -1;

enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageIcon { Question, Information, Exclamation };
enum class MessageAnswer { Ok, Yes, No, Cancel };

/// Shows a message and waits for the answer. A box that is closed without one answers Cancel where it has
/// such a button, No where it has not, and Ok where that is the only one.
/// @param text plain text, its lines set apart by CR LF.
/// @param details plain text below it; may be empty.
MessageAnswer ShowMessageBox(WindowHandle owner, const std::string& text, const std::string& title,
                             MessageButtons buttons, MessageIcon icon, const std::string& details = {});

/// Shows a web page in the user's browser. A failure goes without a word.
void OpenWebPage(WindowHandle owner, const std::string& address);

/// @return the folder of the running program.
FilePath ProgramFolder();

/// While it lives, the pointer tells the user to wait.
class WaitPointer {
public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

/// Lets the events that wait for the window take place.
void RunPendingEvents();

/// Ends the process at once; nothing is asked and no window is told.
[[noreturn]] void EndProcess();

} // namespace railwright
