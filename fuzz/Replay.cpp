#include "fuzz/Fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>

/// Runs the target once on each file of the given folders. Fails if a folder is empty.
int main(int count, char** folders) {
    for (int i = 1; i < count; ++i) {
        railwright::fuzz::Require(!std::filesystem::is_empty(folders[i]), "there are files to run over");
        for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
            std::fprintf(stderr, "%s\n", entry.path().c_str()); // the last line names the faulty file
            std::ifstream stream(entry.path(), std::ios::binary);
            const railwright::fuzz::Bytes bytes{std::istreambuf_iterator<char>(stream), {}};
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        }
    }
    return count > 1 ? 0 : 1;
}
