#pragma once

#include "platform/FileOperations.h"

#include <algorithm>
#include <utility>

namespace railwright::testing {

/// Thrown where the process is to end suddenly.
struct SuddenEnd {};

/// The system's file operations with faults of the test's choice, in force while it lives. Counted are the
/// calls that can fail. No write takes more than 100 bytes; none waits for the disk.
class FailingFiles final : public FileOperations {
public:
    int FailAt = 0;              // the number of the call that fails, counted from 1; 0 for none
    bool EndsSuddenly = false;   // instead of a failure the process ends at that call
    int Calls = 0;               // made so far
    bool WritesNothing = false;  // a write that fails gives no error, it only writes nothing
    std::errc OpenNewError = {}; // what OpenNew gives; no error for the system's own answer

    FileStatus Status(const std::string& path) override { return system.Status(path); }
    FileStatus ExactStatus(const std::string& path) override { return system.ExactStatus(path); }
    std::string BehindLinks(const std::string& path) override { return system.BehindLinks(path); }
    std::string TemporaryNameBeside(const std::string& a) override { return system.TemporaryNameBeside(a); }
    void FlushFolder(const std::string&) override {}
    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override {
        return Opened([&] { return system.OpenToRead(path, error); }, error);
    }
    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                      std::error_code& error) override {
        error = OpenNewError == std::errc{} ? error : std::make_error_code(OpenNewError);
        return error ? nullptr : Opened([&] { return system.OpenNew(path, like, error); }, error);
    }
    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override {
        return Opened([&] { return system.OpenToOverwrite(path, error); }, error);
    }
    void Replace(const std::string& from, const std::string& to, std::error_code& error) override {
        Fails(error) ? void() : system.Replace(from, to, error);
    }
    void Move(const std::string& from, const std::string& to, std::error_code& error) override {
        Fails(error) ? void() : system.Move(from, to, error);
    }
    std::vector<std::string> List(const std::string& folder, std::error_code& error) override {
        return Fails(error) ? std::vector<std::string>{} : system.List(folder, error);
    }
    void Delete(const std::string& path, std::error_code& error) override {
        Fails(error) ? void() : system.Delete(path, error);
    }
    void CreateFolder(const std::string& path, std::error_code& error) override {
        Fails(error) ? void() : system.CreateFolder(path, error);
    }

private:
    struct File final : OpenFile {
        File(FailingFiles& files, std::unique_ptr<OpenFile> opened) : All(files), Real(std::move(opened)) {}
        std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) override {
            return All.Fails(error) ? 0 : Real->Read(into, error);
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) override {
            if (!All.Fails(error))
                return Real->Write(bytes.first(std::min<std::size_t>(bytes.size(), 100)), error);
            error = All.WritesNothing ? std::error_code{} : error;
            return 0;
        }
        void CutOff(std::error_code& e) override { All.Fails(e) ? void() : Real->CutOff(e); }
        void Flush(std::error_code& error) override { All.Fails(error); }
        // The system closes a file even when it reports that the last bytes were lost.
        void Close(std::error_code& error) override { Real->Close(error), All.Fails(error); }
        FailingFiles& All;
        std::unique_ptr<OpenFile> Real;
    };

    /// Counts a call. @return whether it is the one to fail; then `error` is set.
    bool Fails(std::error_code& error) {
        const bool fails = ++Calls == FailAt;
        if (fails && EndsSuddenly)
            throw SuddenEnd{};
        error = fails ? std::make_error_code(std::errc::no_space_on_device) : error;
        return fails;
    }
    std::unique_ptr<OpenFile> Opened(auto&& open, std::error_code& error) {
        auto file = Fails(error) ? nullptr : open();
        return file ? std::make_unique<File>(*this, std::move(file)) : nullptr;
    }

    FileOperations& system = SystemFiles();
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
