#include "platform/posix/NameLookup.h"

#include "base/Text.h"
#include "platform/Paths.h"

#include <algorithm>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

namespace railwright {
namespace {

bool Exists(const std::string& native) {
    struct stat found {};
    return lstat(native.c_str(), &found) == 0;
}

/// A name in lower case; one that the code page cannot hold is only equal to itself.
std::string Folded(const std::string& name) {
    const text characters = FromUtf8(name, Windows1252());
    const bool holds = ToUtf8(characters, Windows1252()) == name;
    return holds ? ToUtf8(LowerCase(characters, Windows1252()), Windows1252()) : name;
}

/// The name in `folder` that equals `wanted` but for case, the first in order if there are several.
std::string SimilarName(const std::string& folder, const std::string& wanted) {
    std::error_code ignored;
    const std::string folded = Folded(wanted);
    std::string best;
    for (const std::string& name : NamesIn(folder.empty() ? "." : folder, ignored))
        if (Folded(name) == folded && (best.empty() || name < best))
            best = name;
    return best.empty() ? wanted : best;
}

} // namespace

std::vector<std::string> NamesIn(const std::string& nativeFolder, std::error_code& error) {
    struct Closer {
        void operator()(DIR* open) const { closedir(open); }
    };
    const std::unique_ptr<DIR, Closer> folder(opendir(nativeFolder.c_str()));
    if (!folder)
        error = {errno, std::system_category()};
    std::vector<std::string> names;
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..")
            names.push_back(name);
    }
    return names;
}

std::string ExistingName(const std::string& path) {
    std::string native = PathForOutside(path);
    if (Exists(native))
        return native;
    std::string found;
    for (std::size_t start = 0; start < native.size();) {
        const std::size_t end = std::min(native.find('/', start), native.size());
        const std::string component = native.substr(start, end - start);
        found += Exists(found + component) ? component : SimilarName(found, component);
        if (end < native.size())
            found += '/';
        start = end + 1;
    }
    return found;
}

std::string NewName(const std::string& path) {
    const std::string native = PathForOutside(path);
    const std::size_t name = native.rfind('/') + 1;
    return name == 0 ? native : ExistingName(native.substr(0, name)) + native.substr(name);
}

} // namespace railwright
