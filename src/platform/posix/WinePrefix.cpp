#include "platform/WinePrefix.h"

#include "base/FileName.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "platform/FileOperations.h"
#include "platform/NameLookup.h"
#include "platform/WholeFile.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace railwright {
namespace {

/// Returns the folder of the prefix, which may be missing; empty if neither WINEPREFIX nor HOME is set.
FilePath Prefix() {
    const char* const named = std::getenv("WINEPREFIX");
    if (named != nullptr && *named != '\0')
        return FilePath::FromUser(named);
    const char* const home = std::getenv("HOME");
    return home == nullptr ? FilePath() : FilePath::FromUser(home) / FileName(".wine");
}

int HexDigit(char digit) {
    const std::size_t value = std::string_view("0123456789abcdef").find(digit);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

/// Reads a text up to `end` and decodes its escapes. "\x" with up to four digits is a character; any other
/// escaped letter is itself.
/// @param line loses the text and `end`.
/// @return nothing if `end` is missing.
std::optional<std::string> TakeEscaped(std::string_view& line, char end) {
    std::string taken;
    while (!line.empty() && line.front() != end) {
        const bool isEscaped = line.front() == '\\' && line.size() > 1;
        line.remove_prefix(isEscaped ? 1 : 0);
        const char letter = line.front();
        line.remove_prefix(1);
        if (!isEscaped || letter != 'x') {
            taken += letter;
            continue;
        }
        char32_t character = 0;
        for (int digits = 0; digits < 4 && !line.empty() && HexDigit(line.front()) >= 0; ++digits) {
            character = 16 * character + static_cast<char32_t>(HexDigit(line.front()));
            line.remove_prefix(1);
        }
        AppendUtf8(taken, character);
    }
    if (line.empty())
        return std::nullopt;
    line.remove_prefix(1);
    return taken;
}

/// Returns the text assigned in a line, if the line assigns this value.
std::optional<std::string> TextOfLine(std::string_view line, std::string_view value) {
    if (!line.starts_with('"'))
        return std::nullopt;
    line.remove_prefix(1);
    const std::optional<std::string> name = TakeEscaped(line, '"');
    if (!name || !SameIgnoringCase(*name, value) || !line.starts_with("=\""))
        return std::nullopt;
    line.remove_prefix(2);
    return TakeEscaped(line, '"');
}

} // namespace

std::optional<std::string> ReadWineRegistry(std::string_view key, std::string_view value) {
    const FilePath prefix = Prefix();
    std::vector<std::uint8_t> bytes;
    if (prefix.IsEmpty() || !ReadWholeFile(prefix / FileName("user.reg"), bytes))
        return std::nullopt;
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    bool isInKey = false;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.starts_with('[')) {
            line.remove_prefix(1);
            const std::optional<std::string> name = TakeEscaped(line, ']');
            isInKey = name && SameIgnoringCase(*name, key);
        } else if (isInKey) {
            if (std::optional<std::string> found = TextOfLine(line, value))
                return found;
        }
    }
    return std::nullopt;
}

FilePath FromWindowsPath(std::string_view path) {
    if (path.size() < 2 || path[1] != ':')
        return FilePath::FromWindowsForm(path);
    // Wine names its drives in lower case.
    const std::string drive = BytesOf(LowerCase(TextOf(path.substr(0, 2)), SystemCodePage()));
    FilePath root = Prefix() / FileName("dosdevices") / FileName(drive);
    if (Prefix().IsEmpty() || Files().Status(root).What != FileStatus::Kind::Folder) {
        if (drive != "z:")
            return FilePath::FromWindowsForm(path);
        root = FilePath::FromUser("/");
    }
    const std::unique_ptr<char, void (*)(void*)> own(realpath(root.Native().c_str(), nullptr), std::free);
    if (own)
        root = FilePath::FromUser(own.get());
    path.remove_prefix(std::min(path.find_first_not_of("\\/", 2), path.size()));
    FilePath exact = FilePath::FromUser(root.AsFolder().Native() + FilePath::FromWindowsForm(path).Native());
    if (Files().Status(exact).What == FileStatus::Kind::Folder)
        return exact;
    return NameLookup().Find(root, DocumentPath(FromUtf8(path, SystemCodePage())));
}

std::string ForWindowsPrograms(const FilePath& path) {
    return (path.Native().starts_with('/') ? "Z:" : "") + path.InWindowsForm();
}

} // namespace railwright
