#include "platform/FilePath.h"

#include "base/Text.h"

#include <algorithm>

namespace railwright {
namespace {

std::string WithSeparators(std::string_view path, std::string_view instead, char separator) {
    std::string replaced(path);
    for (const char other : instead)
        std::replace(replaced.begin(), replaced.end(), other, separator);
    return replaced;
}

std::string_view WithoutEnd(std::string_view path) {
    return path.substr(0, path.find_last_not_of(PathSeparator()) + 1);
}

} // namespace

std::string FileName::Shown() const {
    return OnOneLine(native);
}

FilePath FilePath::FromUser(std::string_view path) {
    return FilePath(WithSeparators(path, PathSeparator() == '\\' ? "/" : "", PathSeparator()));
}

FilePath FilePath::FromWindowsForm(std::string_view path) {
    return FilePath(WithSeparators(path, "\\/", PathSeparator()));
}

std::string FilePath::Shown() const {
    return OnOneLine(native);
}

std::string FilePath::InWindowsForm() const {
    return WithSeparators(native, "/", '\\');
}

bool FilePath::NamesFile() const {
    const std::string name = Name().Native();
    return !name.empty() && name != "." && name != "..";
}

FileName FilePath::Name() const {
    return FileName(native.substr(native.rfind(PathSeparator()) + 1));
}

FilePath FilePath::Folder() const {
    const std::string_view path = WithoutEnd(native);
    const std::size_t last = path.rfind(PathSeparator());
    if (last == std::string_view::npos)
        return {};
    const std::string_view folder = WithoutEnd(path.substr(0, last));
    const bool isRoot = folder.empty() || (PathSeparator() == '\\' && folder.ends_with(':'));
    return FilePath(std::string(isRoot ? path.substr(0, last + 1) : folder));
}

FilePath FilePath::AsFolder() const {
    return native.ends_with(PathSeparator()) ? *this : WithEnding(std::string(1, PathSeparator()));
}

FilePath FilePath::WithEnding(std::string_view ending) const {
    return FilePath(native + std::string(ending));
}

FilePath& FilePath::operator/=(const FileName& name) {
    if (!IsEmpty() && !native.ends_with(PathSeparator()))
        native += PathSeparator();
    native += name.Native();
    return *this;
}

} // namespace railwright
