#include "platform/Registry.h"

#include "platform/CodePage.h"
#include "platform/FileOperations.h"
#include "platform/WholeFile.h"
#include "platform/posix/FileLock.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/RegistryText.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include <fcntl.h>

namespace railwright::registry {
namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// @return the file that is the registry; empty if the user has no folder of their own.
FilePath RegistryFile() {
    if (const std::string named = Environment("RAILWRIGHT_REGISTRY"); !named.empty())
        return FilePath::FromUser(named);
    std::string data = Environment("XDG_DATA_HOME");
    if (!data.starts_with('/')) { // also a relative one, which does not count
        const std::string home = Environment("HOME");
        data = home.empty() ? "" : home + "/.local/share";
    }
    return data.empty() ? FilePath() : FilePath::FromUser(data + "/railwright/registry.reg");
}

std::int32_t Load(RegistryTree& tree) {
    const FilePath file = RegistryFile();
    if (file.IsEmpty() || Files().Status(file).What == FileStatus::Kind::Missing)
        return ERROR_SUCCESS;
    std::vector<std::uint8_t> bytes;
    if (!ReadWholeFile(file, bytes))
        return ERROR_ACCESS_DENIED;
    auto read = ParseRegistry(bytes);
    if (!read)
        return ERROR_BADDB;
    tree = std::move(*read);
    return ERROR_SUCCESS;
}

std::int32_t Save(const RegistryTree& tree) {
    return WriteWholeFile(RegistryFile(), FormatRegistry(tree)) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

/// Keeps every other process from changing the registry as long as it is held, so that nothing is lost
/// between the reading and the writing. The file is a new one after each change, but its folder stays.
/// It waits for another process once: after a wait in vain, later calls give up at once until one succeeds.
/// @return null if it cannot be had.
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
                      isPatient ? LongestWait : LongestWait.zero());
    isPatient = error != std::errc::resource_unavailable_try_again;
    return error ? nullptr : std::move(held);
}

/// The paths of the keys that are open, by their handles.
std::map<Handle, RegistryName>& OpenKeys() {
    static std::map<Handle, RegistryName> keys;
    return keys;
}

const std::map<Handle, RegistryName> Roots = {{HKEY_CLASSES_ROOT, u"HKEY_CLASSES_ROOT"},
                                              {HKEY_CURRENT_USER, u"HKEY_CURRENT_USER"}};

bool IsRoot(const RegistryName& path) {
    return path.find(u'\\') == RegistryName::npos;
}

/// @return the path of an open key, empty if there is none of that handle.
RegistryName PathOf(Handle key) {
    const auto& keys = Roots.contains(key) ? Roots : OpenKeys();
    const auto found = keys.find(key);
    return found == keys.end() ? RegistryName{} : found->second;
}

std::int32_t PathBelow(Handle key, const char* subKey, RegistryName& path) {
    path = PathOf(key);
    if (path.empty())
        return ERROR_INVALID_HANDLE;
    std::string_view below = subKey == nullptr ? "" : subKey;
    if (below.starts_with('\\'))
        return ERROR_BAD_PATHNAME;
    while (below.ends_with('\\'))
        below.remove_suffix(1);
    if (!below.empty())
        path += u'\\' + WidenAnsi(below);
    return ERROR_SUCCESS;
}

/// Reads the registry, and works out which path a subkey of an open key is.
std::int32_t LoadPath(Handle key, const char* subKey, RegistryName& path, RegistryTree& tree) {
    const std::int32_t named = PathBelow(key, subKey, path);
    return named == ERROR_SUCCESS ? Load(tree) : named;
}

Handle Open(const RegistryName& path) {
    Handle handle = 1;
    while (OpenKeys().contains(handle))
        ++handle;
    OpenKeys()[handle] = path;
    return handle;
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

/// @return a value's data as the ANSI calls show it.
std::vector<std::uint8_t> AnsiData(const RegistryValue& value) {
    if (!IsTextType(value.Type))
        return value.Data;
    const std::string ansi = Narrowed(FromWideBytes(value.Data));
    return {ansi.begin(), ansi.end()};
}

/// Finds the key behind a handle in the tree of the file.
std::int32_t LoadKey(Handle key, RegistryTree& tree, RegistryKey*& found) {
    const RegistryName path = PathOf(key);
    if (path.empty())
        return ERROR_INVALID_HANDLE;
    if (const std::int32_t loaded = Load(tree); loaded != ERROR_SUCCESS)
        return loaded;
    found = IsRoot(path) ? &tree.Make(path) : tree.Find(path);
    return found == nullptr ? ERROR_KEY_DELETED : ERROR_SUCCESS;
}

} // namespace

std::int32_t RegOpenKeyExA(Handle key, const char* subKey, std::uint32_t, std::uint32_t, Handle* result) {
    RegistryName path;
    RegistryTree tree;
    if (const std::int32_t loaded = LoadPath(key, subKey, path, tree); loaded != ERROR_SUCCESS)
        return loaded;
    if (!IsRoot(path) && tree.Find(path) == nullptr)
        return ERROR_FILE_NOT_FOUND;
    *result = Open(path);
    return ERROR_SUCCESS;
}

std::int32_t RegCreateKeyA(Handle key, const char* subKey, Handle* result) {
    RegistryName path;
    RegistryTree tree;
    if (const std::int32_t loaded = LoadPath(key, subKey, path, tree); loaded != ERROR_SUCCESS)
        return loaded;
    if (!IsRoot(path) && tree.Find(path) == nullptr) {
        const auto held = HoldRegistry();
        if (const std::int32_t loaded = held ? Load(tree) : ERROR_ACCESS_DENIED; loaded != ERROR_SUCCESS)
            return loaded;
        tree.Make(path);
        if (const std::int32_t saved = Save(tree); saved != ERROR_SUCCESS)
            return saved;
    }
    *result = Open(path);
    return ERROR_SUCCESS;
}

std::int32_t RegQueryValueExA(Handle key, const char* valueName, std::uint32_t*, std::uint32_t* type,
                              std::uint8_t* data, std::uint32_t* size) {
    RegistryTree tree;
    RegistryKey* found = nullptr;
    if (const std::int32_t loaded = LoadKey(key, tree, found); loaded != ERROR_SUCCESS)
        return loaded;
    const RegistryValue* const value =
        RegistryTree::FindValue(*found, WidenAnsi(valueName == nullptr ? "" : valueName));
    if (value == nullptr)
        return ERROR_FILE_NOT_FOUND;
    if (type != nullptr)
        *type = value->Type;
    if (size == nullptr)
        return ERROR_SUCCESS;
    const std::vector<std::uint8_t> bytes = AnsiData(*value);
    const bool fits = bytes.size() <= *size;
    *size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr)
        return ERROR_SUCCESS;
    if (!fits)
        return ERROR_MORE_DATA;
    std::copy(bytes.begin(), bytes.end(), data);
    return ERROR_SUCCESS;
}

std::int32_t RegSetValueExA(Handle key, const char* valueName, std::uint32_t, std::uint32_t type,
                            const std::uint8_t* data, std::uint32_t size) {
    const auto held = HoldRegistry();
    if (!held)
        return ERROR_ACCESS_DENIED;
    RegistryTree tree;
    RegistryKey* found = nullptr;
    if (const std::int32_t loaded = LoadKey(key, tree, found); loaded != ERROR_SUCCESS)
        return loaded;
    RegistryValue& value = RegistryTree::MakeValue(*found, WidenAnsi(valueName == nullptr ? "" : valueName));
    value.Type = type;
    if (IsTextType(type)) {
        const bool nulBehind = size > 0 && data[size - 1] != 0 && data[size] == 0;
        const auto* const characters = reinterpret_cast<const char*>(data);
        value.Data = ToWideBytes(WidenAnsi({characters, size + (nulBehind ? 1U : 0U)}));
    } else {
        value.Data.assign(data, data + size);
    }
    return Save(tree);
}

std::int32_t RegDeleteKeyA(Handle key, const char* subKey) {
    const auto held = HoldRegistry();
    if (!held)
        return ERROR_ACCESS_DENIED;
    RegistryName path;
    RegistryTree tree;
    if (const std::int32_t loaded = LoadPath(key, subKey, path, tree); loaded != ERROR_SUCCESS)
        return loaded;
    if (IsRoot(path) || tree.HasSubkeys(path))
        return ERROR_ACCESS_DENIED;
    if (tree.Find(path) == nullptr)
        return ERROR_FILE_NOT_FOUND;
    tree.Remove(path);
    return Save(tree);
}

std::int32_t RegCloseKey(Handle key) {
    return Roots.contains(key) || OpenKeys().erase(key) > 0 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

} // namespace railwright::registry
