#include "platform/NameLookup.h"

#include "platform/CodePage.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <string_view>

namespace railwright {
namespace {

constexpr TextView Separators = "\\/";

/// Splits a path at its separators, including empty pieces.
std::vector<text> Pieces(const text& path) {
    std::vector<text> pieces;
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find_first_of(Separators, start), path.size());
        pieces.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

/// Returns a name in lower case. A name that the code page cannot represent is returned unchanged.
std::string Folded(const FileName& name) {
    const text characters = FromUtf8(name.Native(), SystemCodePage());
    const bool holds = ToUtf8(characters, SystemCodePage()) == name.Native();
    return holds ? ToUtf8(LowerCase(characters, SystemCodePage()), SystemCodePage()) : name.Native();
}

} // namespace

std::vector<FileName> DocumentPath::Names() const {
    std::vector<FileName> names;
    for (const text& piece : Pieces(characters))
        if (!piece.empty() && piece != ".")
            names.emplace_back(ToUtf8(piece, SystemCodePage()));
    return names;
}

bool DocumentPath::StaysBelow() const {
    const std::vector<text> pieces = Pieces(characters);
    return characters.find_first_of(TextView(":\0", 2)) == text::npos &&
           std::find(pieces.begin(), pieces.end(), "..") == pieces.end();
}

FilePath DocumentPath::In(const FilePath& folder) const {
    FilePath place = folder;
    for (const FileName& name : Names())
        place /= name;
    return place;
}

NameLookup::Spellings& NameLookup::SpellingsIn(const FilePath& folder) {
    const auto [known, isNew] = folders.try_emplace(folder);
    if (isNew) {
        std::error_code error;
        for (const FileName& name : Files().List(folder, error))
            known->second[Folded(name)].Listed.insert(name);
        const FileStatus::Kind what = error ? Files().Status(folder).What : FileStatus::Kind::Missing;
        isComplete = isComplete && what != FileStatus::Kind::Folder && what != FileStatus::Kind::Unknown;
    }
    return known->second;
}

FilePath NameLookup::Find(const FilePath& folder, const FileName& name, bool& isListed) {
    Similar& similar = SpellingsIn(folder)[Folded(name)];
    isListed = !similar.Listed.empty();
    if (!isListed && !similar.Asked)
        similar.Asked = name;
    if (!isListed)
        return folder / *similar.Asked;
    return folder / (similar.Listed.contains(name) ? name : *similar.Listed.begin());
}

FilePath NameLookup::Find(const FilePath& folder, const FileName& name) {
    bool ignored = false;
    return Find(folder, name, ignored);
}

FilePath NameLookup::Find(const FilePath& folder, const DocumentPath& path) {
    FilePath found = folder;
    bool isThere = true;
    for (const FileName& name : path.Names()) {
        if (!isThere) {
            found /= name;
            continue;
        }
        found = Find(found, name, isThere);
        isThere = isThere || Files().Status(found).What != FileStatus::Kind::Missing; // created meanwhile
    }
    return found;
}

} // namespace railwright
