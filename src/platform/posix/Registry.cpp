#include "platform/Registry.h"

#include "platform/CodePage.h"
#include "platform/FileOperations.h"
#include "platform/WholeFile.h"
#include "platform/posix/FileLock.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/RegistryText.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string_view>

#include <fcntl.h>

namespace railwright::registry {
namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// @return the file that holds the registry, or an empty path if the user has no data folder.
FilePath RegistryFile() {
    if (const std::string named = Environment("RAILWRIGHT_REGISTRY"); !named.empty())
        return FilePath::FromUser(named);
    std::string data = Environment("XDG_DATA_HOME");
    if (!data.starts_with('/')) { // the standard ignores a relative path
        const std::string home = Environment("HOME");
        data = home.empty() ? "" : home + "/.local/share";
    }
    return data.empty() ? FilePath() : FilePath::FromUser(data + "/railwright/registry.reg");
}

/// @return nothing if the file cannot be read or is not a registry file. A missing file is an empty registry.
std::optional<RegistryTree> Load() {
    const FilePath file = RegistryFile();
    if (file.IsEmpty() || Files().Status(file).What == FileStatus::Kind::Missing)
        return RegistryTree();
    std::vector<std::uint8_t> bytes;
    return ReadWholeFile(file, bytes) ? ParseRegistry(bytes) : std::nullopt;
}

/// Locks the registry against changes by other processes between reading and writing. Each change replaces
/// the file, so the lock is on its folder. After a timeout, later calls do not wait until one succeeds.
/// @return null if the lock is not available.
std::unique_ptr<PosixFile> HoldRegistry() {
    static bool isPatient = true;
    std::error_code error;
    const FilePath file = RegistryFile();
    const FilePath folder = Files().BehindLinks(file, error).Folder();
    if (file.IsEmpty() || error || !CreateFolders(folder))
        return nullptr;
    auto held = OpenNative(folder.IsEmpty() ? "." : folder.Native(), O_RDONLY | O_DIRECTORY, 0, error);
    if (held)
        LockPatiently(held->Descriptor(), Lock::Exclusive, error,
                      isPatient ? LongestWait : std::chrono::seconds(0));
    isPatient = error != std::errc::resource_unavailable_try_again;
    return error ? nullptr : std::move(held);
}

/// @return the full path of a key, or nothing for another root or an invalid path.
std::optional<RegistryName> PathOf(std::uint32_t root, std::string_view key) {
    RegistryName path = root == HKEY_CLASSES_ROOT   ? u"HKEY_CLASSES_ROOT"
                        : root == HKEY_CURRENT_USER ? u"HKEY_CURRENT_USER"
                                                    : u"";
    if (path.empty() || key.starts_with('\\'))
        return std::nullopt;
    while (key.ends_with('\\'))
        key.remove_suffix(1);
    return key.empty() ? path : path + u'\\' + WidenAnsi(key);
}

std::string Narrowed(const RegistryName& wide) {
    const auto& characters = SystemCodePage().Unicode;
    std::string ansi;
    for (const char16_t unit : wide) {
        const auto* const found = std::find(characters.begin(), characters.end(), char32_t{unit});
        ansi += found == characters.end() ? '?' : static_cast<char>(found - characters.begin());
    }
    return ansi;
}

/// @return a value's data as the ANSI functions of Windows return it.
std::string AnsiData(const RegistryValue& value) {
    return IsTextType(value.Type) ? Narrowed(FromWideBytes(value.Data))
                                  : std::string(value.Data.begin(), value.Data.end());
}

/// Changes the registry file.
/// @param edit changes the tree at a path and returns whether to save it.
bool Change(std::uint32_t root, const std::string& key,
            const std::function<bool(RegistryTree& tree, const RegistryName& path)>& edit) {
    const std::optional<RegistryName> path = PathOf(root, key);
    const auto held = path ? HoldRegistry() : nullptr;
    std::optional<RegistryTree> tree = held ? Load() : std::nullopt;
    return tree && edit(*tree, *path) && WriteWholeFile(RegistryFile(), FormatRegistry(*tree));
}

} // namespace

std::optional<Value> Read(std::uint32_t root, const std::string& key, const std::string& name) {
    const std::optional<RegistryName> path = PathOf(root, key);
    std::optional<RegistryTree> tree = path ? Load() : std::nullopt;
    const RegistryKey* const found = tree ? tree->Find(*path) : nullptr;
    const RegistryValue* const value =
        found == nullptr ? nullptr : RegistryTree::FindValue(*found, WidenAnsi(name));
    if (value == nullptr)
        return std::nullopt;
    Value read = {value->Type, AnsiData(*value)};
    return read.Data.size() <= LongestValue ? std::optional(std::move(read)) : std::nullopt;
}

bool CreateKey(std::uint32_t root, const std::string& key) {
    return Change(root, key, [](RegistryTree& tree, const RegistryName& path) {
        tree.Make(path);
        return true;
    });
}

bool Write(std::uint32_t root, const std::string& key, const std::string& name, const Value& value) {
    return Change(root, key, [&](RegistryTree& tree, const RegistryName& path) {
        RegistryValue& stored = RegistryTree::MakeValue(tree.Make(path), WidenAnsi(name));
        std::string data = value.Data;
        if (IsTextType(value.Type) && !data.empty() && data.back() != '\0')
            data += '\0';
        stored.Type = value.Type;
        stored.Data = IsTextType(value.Type) ? ToWideBytes(WidenAnsi(data))
                                             : std::vector<std::uint8_t>(data.begin(), data.end());
        return true;
    });
}

bool Delete(std::uint32_t root, const std::string& key) {
    return Change(root, key, [](RegistryTree& tree, const RegistryName& path) {
        const bool isRoot = path.find(u'\\') == RegistryName::npos;
        if (isRoot || tree.Find(path) == nullptr || tree.HasSubkeys(path))
            return false;
        tree.Remove(path);
        return true;
    });
}

} // namespace railwright::registry
