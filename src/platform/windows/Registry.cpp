#include "platform/Registry.h"

#include <windows.h>

namespace railwright::registry {
namespace {

/// Registrations of the current user. HKEY_CLASSES_ROOT shows them instead of the machine's.
constexpr const char* UserClasses = "Software\\Classes\\";

/// KEY_READ and KEY_WRITE.
constexpr REGSAM ReadAndWrite = 0x2003F;

/// An open key, closed on destruction. Null if it could not be opened.
class Key {
public:
    Key(std::uint32_t root, const std::string& key) {
        RegOpenKeyExA(Native(root), key.c_str(), 0, ReadAndWrite, &handle);
    }
    ~Key() {
        if (handle != nullptr)
            RegCloseKey(handle);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    void Create(std::uint32_t root, const std::string& key) {
        const LSTATUS status = CreateIn(Native(root), key);
        // Only administrators may change the machine's registrations. Other users have their own.
        if (status == ERROR_ACCESS_DENIED && Native(root) == HKEY_CLASSES_ROOT)
            CreateIn(HKEY_CURRENT_USER, UserClasses + key);
    }
    HKEY Handle() const { return handle; }

    /// Converts a root, a negative 32-bit number, to a handle with sign extension.
    static HKEY Native(std::uint32_t root) {
        return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<std::int32_t>(root)));
    }

private:
    LSTATUS CreateIn(HKEY root, const std::string& key) {
        return RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &handle,
                               nullptr);
    }

    HKEY handle = nullptr;
};

} // namespace

std::optional<Value> Read(std::uint32_t root, const std::string& key, const std::string& name) {
    const Key opened(root, key);
    Value value;
    value.Data.resize(LongestValue);
    DWORD type = 0;
    DWORD size = LongestValue;
    auto* const bytes = reinterpret_cast<BYTE*>(value.Data.data());
    if (opened.Handle() == nullptr ||
        RegQueryValueExA(opened.Handle(), name.c_str(), nullptr, &type, bytes, &size) != ERROR_SUCCESS)
        return std::nullopt;
    value.Type = type;
    value.Data.resize(size);
    return value;
}

bool CreateKey(std::uint32_t root, const std::string& key) {
    Key opened(root, key);
    if (opened.Handle() == nullptr)
        opened.Create(root, key);
    return opened.Handle() != nullptr;
}

bool Write(std::uint32_t root, const std::string& key, const std::string& name, const Value& value) {
    Key opened(root, key);
    if (opened.Handle() == nullptr)
        opened.Create(root, key);
    // Windows appends the text's NUL.
    return opened.Handle() != nullptr &&
           RegSetValueExA(opened.Handle(), name.c_str(), 0, value.Type,
                          reinterpret_cast<const BYTE*>(value.Data.c_str()),
                          static_cast<DWORD>(value.Data.size())) == ERROR_SUCCESS;
}

bool Delete(std::uint32_t root, const std::string& key) {
    return RegDeleteKeyA(Key::Native(root), key.c_str()) == ERROR_SUCCESS;
}

} // namespace railwright::registry
