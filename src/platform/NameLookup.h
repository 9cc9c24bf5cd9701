#pragma once

#include "base/Types.h"
#include "platform/FilePath.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace railwright {

/// A path that stands in a document, from some folder on: names in the code page, parted by backslashes or
/// slashes.
class DocumentPath {
public:
    explicit DocumentPath(text path) : characters(std::move(path)) {}

    const text& Text() const { return characters; }
    /// @return its names, without those that do not count.
    std::vector<FileName> Names() const;
    /// @return whether it cannot lead out of its folder: up, to another drive, or to no file at all.
    bool StaysBelow() const;
    /// @return where it leads from a folder on if every name is taken just as it is written.
    FilePath In(const FilePath& folder) const;

    bool operator==(const DocumentPath&) const = default;

private:
    text characters;
};

/// Finds on the disk what a document names, in any case of letters. Of names that differ in nothing else, the
/// one written just so is taken, and otherwise the first in the order of their bytes, capitals before small
/// letters.
///
/// It lists each folder once. A name that is missing gets the letters in which it was first asked for, so
/// that it is found again once it is made. Below a missing folder, names are taken as they are written.
class NameLookup {
public:
    FilePath Find(const FilePath& folder, const FileName& name);
    FilePath Find(const FilePath& folder, const DocumentPath& path);
    /// @return whether every folder that it had to look at could be listed. Where one could not, what is
    /// there may not have been found.
    bool IsComplete() const { return isComplete; }

private:
    /// The names in a folder that are the same in lower case.
    struct Similar {
        std::set<FileName> Listed;
        /// The first that was asked for while none was listed.
        std::optional<FileName> Asked;
    };
    using Spellings = std::map<std::string, Similar>;

    Spellings& SpellingsIn(const FilePath& folder);
    FilePath Find(const FilePath& folder, const FileName& name, bool& isListed);

    /// By their paths the names in each folder, by those in lower case.
    std::map<FilePath, Spellings> folders;
    bool isComplete = true;
};

} // namespace railwright
