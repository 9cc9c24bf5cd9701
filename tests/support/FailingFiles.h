#pragma once

#include "platform/FileOperations.h"

#include <algorithm>
#include <utility>

namespace railwright::testing {

/// What the failures of a file system come down to: a full disk, a broken one, a right that is missing.
constexpr std::errc Causes[] = {std::errc::no_space_on_device, std::errc::io_error,
                                std::errc::permission_denied};

/// Thrown where the process is to end suddenly.
struct SuddenEnd {};

/// The system's file operations with faults of the test's choice, in force while it lives. Counted are the
/// calls that can fail. No write takes more than 100 bytes at once, and none waits for the disk.
class FailingFiles final : public FileOperations {
    using Name = const std::string&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;

public:
    int FailAt = 0;              // the number of the call that fails, counted from 1; 0 for none
    int Calls = 0;               // made so far
    bool Stays = false;          // every call behind that one fails as well
    std::errc Cause = Causes[0]; // what the failure gives
    bool EndsSuddenly = false;   // instead of a failure the process ends at that call
    bool LosesTheOldFile =
        false; // an exchange breaks off in the middle: the old file is gone, the new one has no name
    bool WritesNothing = false;  // a write that fails gives no error, it only writes nothing
    std::errc OpenNewError = {}; // what OpenNew gives; no error for the system's own answer

    FileStatus Status(Name path) override { return real.Status(path); }
    FileStatus ExactStatus(Name path) override { return real.ExactStatus(path); }
    std::string BehindLinks(Name path) override { return real.BehindLinks(path); }
    std::string TemporaryNameBeside(Name path) override { return real.TemporaryNameBeside(path); }
    void FlushFolder(Name) override {}
    Opened OpenToRead(Name a, Error e) override { return Fails(e) ? nullptr : Wrap(real.OpenToRead(a, e)); }
    Opened OpenNew(Name path, Name like, Error e) override {
        e = OpenNewError == std::errc{} ? e : std::make_error_code(OpenNewError);
        return e || Fails(e) ? nullptr : Wrap(real.OpenNew(path, like, e));
    }
    Opened OpenToOverwrite(Name path, Error e) override {
        return Fails(e) ? nullptr : Wrap(real.OpenToOverwrite(path, e));
    }
    void Replace(Name from, Name to, Error e) override {
        if (!LosesTheOldFile)
            return Fails(e) ? void() : real.Replace(from, to, e);
        real.Delete(to, e);
        e = std::error_code(1177, std::system_category());
    }
    void Move(Name from, Name to, Error e) override { Fails(e) ? void() : real.Move(from, to, e); }
    void Delete(Name path, Error e) override { Fails(e) ? void() : real.Delete(path, e); }
    void CreateFolder(Name path, Error e) override { Fails(e) ? void() : real.CreateFolder(path, e); }
    std::vector<std::string> List(Name path, Error e) override {
        return Fails(e) ? std::vector<std::string>{} : real.List(path, e);
    }

private:
    struct File final : OpenFile {
        File(FailingFiles& files, Opened opened) : All(files), Real(std::move(opened)) {}
        std::size_t Read(std::span<std::uint8_t> into, Error e) override {
            return All.Fails(e) ? 0 : Real->Read(into, e);
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, Error e) override {
            if (!All.Fails(e))
                return Real->Write(bytes.first(std::min<std::size_t>(bytes.size(), 100)), e);
            e = All.WritesNothing ? std::error_code{} : e;
            return 0;
        }
        void CutOff(Error e) override { All.Fails(e) ? void() : Real->CutOff(e); }
        void Flush(Error e) override { All.Fails(e); }
        // The system closes a file even when it reports that the last bytes were lost.
        void Close(Error e) override { Real->Close(e), All.Fails(e); }
        FailingFiles& All;
        Opened Real;
    };

    /// Counts a call. @return whether it is the one to fail; then the error is set.
    bool Fails(Error e) {
        const bool fails = ++Calls == FailAt || (Stays && Calls > FailAt);
        if (fails && EndsSuddenly)
            throw SuddenEnd{};
        e = fails ? std::make_error_code(Cause) : e;
        return fails;
    }
    Opened Wrap(Opened file) { return file ? std::make_unique<File>(*this, std::move(file)) : nullptr; }

    FileOperations& real = SystemFiles();
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
