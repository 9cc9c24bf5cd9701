#pragma once

#include "platform/FilePath.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace railwright::testing {

using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;
/// Content of a file before and after a save.
inline const Bytes Old(180, 'o'), New(250, 'n');

inline std::string Utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// A folder for one test, deleted with its content on destruction. File takes and returns paths as a user
/// types them. Inside takes backslashes between the names.
class TemporaryFolder {
public:
    TemporaryFolder() { std::filesystem::create_directories(folder); }
    ~TemporaryFolder() { std::filesystem::remove_all(folder); }
    const std::filesystem::path& Path() const { return folder; }
    std::string File(const std::string& name) const {
        return Utf8(folder / std::u8string(name.begin(), name.end()));
    }
    FilePath Inside(std::string name) const {
        std::replace(name.begin(), name.end(), '\\', '/');
        return FilePath::FromUser(File(name));
    }
    /// The sorted names in the folder.
    std::vector<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.insert(Utf8(entry.path().filename()));
        return {names.begin(), names.end()};
    }

private:
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("railwright-" + std::to_string(std::random_device{}()));
};

inline Bytes ReadBytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteBytes(const std::filesystem::path& file, const Bytes& bytes) {
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

/// The path of an example file, as a user would type it.
inline std::string Example(const std::string& name) {
    return std::string(RAILWRIGHT_EXAMPLES) + '/' + name;
}

} // namespace railwright::testing
