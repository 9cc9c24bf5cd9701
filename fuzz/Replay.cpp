#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs the target once over every file of the given folders, none of which may be empty.
int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        int files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream stream(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
            std::printf("%s\n", entry.path().c_str()); // the last line names the file at fault
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
        std::printf("%d files in %s\n", files, arguments[i]);
        if (files == 0)
            return 1;
    }
    return count > 1 ? 0 : 1;
}
