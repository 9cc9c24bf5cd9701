#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <string>

namespace railwright {

/// The platform's native handle of a window.
using WindowHandle = std::intptr_t;
inline constexpr WindowHandle NoWindow = -1;

enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageIcon { Question, Information, Exclamation };
enum class MessageAnswer { Ok, Yes, No, Cancel };

/// Shows a message and waits for the answer. A box closed without an answer returns Cancel, else No, else Ok,
/// depending on its buttons.
/// @param text plain text; lines end with CR LF.
/// @param details plain text below the message; may be empty.
MessageAnswer ShowMessageBox(WindowHandle owner, const std::string& text, const std::string& title,
                             MessageButtons buttons, MessageIcon icon, const std::string& details = {});

/// Opens a web page in the user's browser. Ignores failures.
void OpenWebPage(WindowHandle owner, const std::string& address);

/// Returns the folder of the running program.
FilePath ProgramFolder();

/// Shows the wait cursor during its lifetime.
class WaitPointer {
public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

/// Processes the pending events of the window.
void RunPendingEvents();

/// Ends the process at once, without asking the user or notifying any window.
[[noreturn]] void EndProcess();

} // namespace railwright
