#include "tests/support/FailingFiles.h"

#include <algorithm>
#include <utility>

namespace railwright::testing {
namespace {

class FailingFile final : public OpenFile {
public:
    FailingFile(FailingFiles& all, std::unique_ptr<OpenFile> opened) : files(all), file(std::move(opened)) {}

    std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) override {
        return files.Fails(error) ? 0 : file->Read(into, error);
    }
    std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) override {
        if (files.Fails(error)) {
            if (files.WritesNothing)
                error.clear();
            return 0;
        }
        return file->Write(bytes.first(std::min(bytes.size(), files.LongestWrite)), error);
    }
    void CutOff(std::error_code& error) override {
        if (!files.Fails(error))
            file->CutOff(error);
    }
    void Flush(std::error_code& error) override {
        if (!files.Fails(error))
            file->Flush(error);
    }
    void Close(std::error_code& error) override {
        file->Close(error); // the system closes a file even when it reports that the last bytes were lost
        files.Fails(error);
    }

private:
    FailingFiles& files;
    std::unique_ptr<OpenFile> file;
};

} // namespace

bool FailingFiles::Fails(std::error_code& error) {
    if (++Calls != FailAt)
        return false;
    if (EndsSuddenly)
        throw SuddenEnd{};
    error = std::make_error_code(std::errc::no_space_on_device);
    return true;
}

std::unique_ptr<OpenFile> FailingFiles::Wrapped(std::unique_ptr<OpenFile> file) {
    return file ? std::make_unique<FailingFile>(*this, std::move(file)) : nullptr;
}

std::unique_ptr<OpenFile> FailingFiles::OpenToRead(const std::string& path, std::error_code& error) {
    return Fails(error) ? nullptr : Wrapped(SystemFiles().OpenToRead(path, error));
}

std::unique_ptr<OpenFile> FailingFiles::OpenNew(const std::string& path, const std::string& like,
                                                std::error_code& error) {
    if (OpenNewError != std::errc{}) {
        error = std::make_error_code(OpenNewError);
        return nullptr;
    }
    return Fails(error) ? nullptr : Wrapped(SystemFiles().OpenNew(path, like, error));
}

std::unique_ptr<OpenFile> FailingFiles::OpenToOverwrite(const std::string& path, std::error_code& error) {
    return Fails(error) ? nullptr : Wrapped(SystemFiles().OpenToOverwrite(path, error));
}

void FailingFiles::Replace(const std::string& from, const std::string& to, std::error_code& error) {
    if (!Fails(error))
        SystemFiles().Replace(from, to, error);
}

void FailingFiles::Move(const std::string& from, const std::string& to, std::error_code& error) {
    if (!Fails(error))
        SystemFiles().Move(from, to, error);
}

std::vector<std::string> FailingFiles::List(const std::string& folder, std::error_code& error) {
    return Fails(error) ? std::vector<std::string>{} : SystemFiles().List(folder, error);
}

void FailingFiles::Delete(const std::string& path, std::error_code& error) {
    if (!Fails(error))
        SystemFiles().Delete(path, error);
}

void FailingFiles::CreateFolder(const std::string& path, std::error_code& error) {
    if (!Fails(error))
        SystemFiles().CreateFolder(path, error);
}

} // namespace railwright::testing
