#pragma once

#include "base/Types.h"
#include "platform/FilePath.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace railwright {

/// A relative path in a document: names in the code page, separated by backslashes or slashes.
class DocumentPath {
public:
    explicit DocumentPath(text path) : characters(std::move(path)) {}

    const text& Text() const { return characters; }
    /// Returns its names without empty ones and ".".
    std::vector<FileName> Names() const;
    /// Returns whether the path stays in its folder: it contains no "..", no drive and no NUL.
    bool StaysBelow() const;
    /// Returns the path appended to a folder, with every name exactly as written.
    FilePath In(const FilePath& folder) const;

    bool operator==(const DocumentPath&) const = default;

private:
    text characters;
};

/// Finds the files and folders that a document names, ignoring case. An exact match takes precedence over
/// names that differ only in case. Otherwise the first of them in byte order is used, so capitals come before
/// small letters.
///
/// Lists each folder once. For a missing name, the spelling of the first request is kept, so that later
/// requests find the file once it is created. Names in a missing folder are used as written.
class NameLookup {
public:
    FilePath Find(const FilePath& folder, const FileName& name);
    FilePath Find(const FilePath& folder, const DocumentPath& path);
    /// Returns whether every folder searched could be listed. If not, existing files may not have been found.
    bool IsComplete() const { return isComplete; }

private:
    /// The names in a folder that are equal in lower case.
    struct Similar {
        std::set<FileName> Listed;
        /// The spelling of the first request while no name is listed.
        std::optional<FileName> Asked;
    };
    using Spellings = std::map<std::string, Similar>;

    Spellings& SpellingsIn(const FilePath& folder);
    FilePath Find(const FilePath& folder, const FileName& name, bool& isListed);

    /// Per folder, its names grouped by their lower-case form.
    std::map<FilePath, Spellings> folders;
    bool isComplete = true;
};

} // namespace railwright
