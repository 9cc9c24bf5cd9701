#include "platform/windows/Errors.h"

#include "platform/windows/Wide.h"

#include <algorithm>
#include <array>

#include <windows.h>

namespace railwright {
namespace {

/// A system error code that the callers distinguish. All other codes match no std::errc.
struct Condition {
    DWORD Code;
    std::errc Means;
};

constexpr std::array Conditions = {
    Condition{ERROR_ACCESS_DENIED, std::errc::permission_denied},
    Condition{ERROR_SHARING_VIOLATION, std::errc::text_file_busy},
    Condition{ERROR_LOCK_VIOLATION, std::errc::text_file_busy},
    Condition{ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    Condition{ERROR_DISK_FULL, std::errc::no_space_on_device},
    Condition{ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    Condition{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    Condition{ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    Condition{ERROR_FILE_EXISTS, std::errc::file_exists},
    Condition{ERROR_ALREADY_EXISTS, std::errc::file_exists},
};

class WindowsErrors final : public std::error_category {
public:
    const char* name() const noexcept override { return "windows"; }

    std::string message(int code) const override {
        std::array<wchar_t, 512> text{};
        const DWORD length = FormatMessageW(
            FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
            nullptr, static_cast<DWORD>(code), 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
        std::string message = FromWide({text.data(), length});
        message.erase(message.find_last_not_of(" .") + 1);
        return message.empty() ? "error " + std::to_string(code) : message;
    }

    std::error_condition default_error_condition(int code) const noexcept override {
        const auto known = std::find_if(Conditions.begin(), Conditions.end(), [&](const Condition& each) {
            return each.Code == static_cast<DWORD>(code);
        });
        return known == Conditions.end() ? std::error_condition(code, *this)
                                         : std::make_error_condition(known->Means);
    }
};

} // namespace

std::error_code LastError() {
    static const WindowsErrors category;
    return {static_cast<int>(GetLastError()), category};
}

} // namespace railwright
