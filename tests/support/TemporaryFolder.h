#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace railwright::testing {

/// A folder of its own for one test, gone with everything in it at the test's end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return folder; }
    /// The path of a file in the folder, as a user would type it.
    std::string File(const std::string& name) const {
        return folder.string() + static_cast<char>(std::filesystem::path::preferred_separator) + name;
    }
    /// The same in the form that the program uses inside.
    std::string Inside(const std::string& name) const;
    /// The names of all that lies in the folder, in order.
    std::vector<std::string> Names() const;

private:
    std::filesystem::path folder;
};

std::vector<unsigned char> ReadBytes(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, const std::vector<unsigned char>& bytes);

/// The path of one of the examples that come with the program, as a user would type it.
std::string Example(const std::string& name);

} // namespace railwright::testing
