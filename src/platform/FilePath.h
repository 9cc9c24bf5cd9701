#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// @return what parts the names of a path here: "/", on Windows a backslash. Where it is "/", a backslash is
/// a letter of a name like any other.
char PathSeparator();

/// The name of one entry of a folder. Whatever letters it has, it is never a path.
class FileName {
public:
    FileName() = default;
    /// @param name as the system lists it, as UTF-8.
    explicit FileName(std::string name) : native(std::move(name)) {}

    const std::string& Native() const { return native; }
    /// @return the name as it can stand in a line of output.
    std::string Shown() const;

    // The checker takes the compiler's own comparison with zero for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const FileName&) const = default;

private:
    std::string native;
};

/// A place on the disk. There is no way into it or out of it but those that say which form is meant.
class FilePath {
public:
    FilePath() = default;
    /// A path as the user, another program or the system gave it.
    static FilePath FromUser(std::string_view path);
    /// A path in the form of Windows, as the registry holds it: a backslash parts names everywhere.
    static FilePath FromWindowsForm(std::string_view path);

    /// @return the path as the system's calls take it and the user knows it, as UTF-8.
    const std::string& Native() const { return native; }
    /// @return the path as it can stand in a line of output.
    std::string Shown() const;
    /// @return the path with a backslash between its names.
    std::string InWindowsForm() const;

    bool IsEmpty() const { return native.empty(); }
    /// @return whether it can be a file's: it does not end in a separator, "." or "..".
    bool NamesFile() const;
    /// @return what stands behind the last separator.
    FileName Name() const;
    /// @return the folder that it lies in; empty if it has none. Separators at its end do not count.
    FilePath Folder() const;
    /// @return the path with a separator at its end.
    FilePath AsFolder() const;
    /// @return the path with `ending` behind its name.
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
