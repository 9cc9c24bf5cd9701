#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// Returns the separator of names in a path: a backslash on Windows, "/" elsewhere. With "/", a backslash is
/// an ordinary character of a name.
char PathSeparator();

/// The name of one folder entry. Never interpreted as a path, whatever characters it contains.
class FileName {
public:
    FileName() = default;
    /// @param name the name as listed by the system, in UTF-8.
    explicit FileName(std::string name) : native(std::move(name)) {}

    const std::string& Native() const { return native; }
    /// Returns the name for one line of output, with control characters replaced.
    std::string Shown() const;

    // clang-tidy mistakes the comparison with zero that the compiler generates for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const FileName&) const = default;

private:
    std::string native;
};

/// A path on the disk. Every conversion names the form it expects or returns.
class FilePath {
public:
    FilePath() = default;
    /// Converts a path given by the user, another program or the system.
    static FilePath FromUser(std::string_view path);
    /// Converts a path with backslashes between its names, as in the registry.
    static FilePath FromWindowsForm(std::string_view path);

    /// Returns the path as the user and the system's calls use it, in UTF-8.
    const std::string& Native() const { return native; }
    /// Returns the path for one line of output, with control characters replaced.
    std::string Shown() const;
    /// Returns the path with a backslash between its names.
    std::string InWindowsForm() const;

    bool IsEmpty() const { return native.empty(); }
    /// Returns whether the path can name a file: it does not end in a separator, "." or "..".
    bool NamesFile() const;
    /// Returns the part after the last separator.
    FileName Name() const;
    /// Returns the parent folder; empty if there is none. Ignores trailing separators.
    FilePath Folder() const;
    /// Returns the path with a trailing separator.
    FilePath AsFolder() const;
    /// Returns the path with `ending` appended to its name.
    FilePath WithEnding(std::string_view ending) const;
    FilePath operator/(const FileName& name) const { return FilePath(*this) /= name; }
    FilePath& operator/=(const FileName& name);

    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const FilePath&) const = default;

private:
    explicit FilePath(std::string path) : native(std::move(path)) {}

    std::string native;
};

} // namespace railwright
