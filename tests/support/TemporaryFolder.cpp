#include "tests/support/TemporaryFolder.h"

#include "platform/Paths.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <random>

namespace railwright::testing {

TemporaryFolder::TemporaryFolder() {
    static std::atomic<int> number = 0;
    const std::string name =
        "railwright-" + std::to_string(std::random_device{}()) + '-' + std::to_string(++number);
    folder = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(folder);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string TemporaryFolder::Inside(const std::string& name) const {
    return PathFromOutside(File(name));
}

std::vector<std::string> TemporaryFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<unsigned char> ReadBytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteBytes(const std::filesystem::path& file, const std::vector<unsigned char>& bytes) {
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::string Example(const std::string& name) {
    return std::string(RAILWRIGHT_EXAMPLES) + '/' + name;
}

} // namespace railwright::testing
