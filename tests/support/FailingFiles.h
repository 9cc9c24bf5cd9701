#pragma once

#include "platform/FileOperations.h"

#include <algorithm>
#include <utility>

namespace railwright::testing {

/// Thrown to end the process suddenly.
struct SuddenEnd {};

/// The current file operations with faults injected, installed until destruction. Counts the calls that can
/// fail. Each write takes at most 100 bytes and does not wait for the disk.
class FailingFiles final : public FileOperations {
    using Name = const FilePath&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;

public:
    int FailAt = 0; // the number of the call that fails, counted from 1; 0 for none
    int Calls = 0;
    std::size_t Listed = 0;                          // names of files listed so far
    bool Stays = false;                              // every later call fails as well
    std::errc Cause = std::errc::no_space_on_device; // the error of the failure
    bool EndsSuddenly = false;                       // that call ends the process instead of failing
    bool LosesTheOldFile = false; // an exchange stops halfway, without the old file and the new name
    bool WritesNothing = false;   // a failing write writes nothing and reports no error
    std::errc OpenNewError = {};  // error of OpenNew; none for the real one
    std::errc FlushFolderError = {};
    std::vector<FilePath> Aside = Files().TemporaryFolders(); // for copies
    std::vector<std::string> Log = {};                        // each exchange and each flush of a folder

    FileStatus Status(Name path) override { return Fails(status.Error) ? status : real.Status(path); }
    FilePath BehindLinks(Name a, Error e) override { return Fails(e) ? a : real.BehindLinks(a, e); }
    std::vector<FilePath> TemporaryFolders() override { return Aside; }
    void FlushFolder(Name folder, Error e) override {
        Log.push_back(folder.Native());
        e = FlushFolderError == std::errc{} ? e : std::make_error_code(FlushFolderError);
    }
    bool IsAbandoned(Name path) override { return real.IsAbandoned(path); }
    void DeleteLeftovers(Name folder) override { real.DeleteLeftovers(folder); }
    Opened OpenToRead(Name a, Error e) override { return Fails(e) ? nullptr : Wrap(real.OpenToRead(a, e)); }
    std::unique_ptr<NewFile> OpenNew(Name path, Name model, Error e) override {
        e = OpenNewError == std::errc{} ? e : std::make_error_code(OpenNewError);
        auto file = e || Fails(e) ? nullptr : real.OpenNew(path, model, e);
        return file ? std::make_unique<New>(*this, path, std::move(file)) : nullptr;
    }
    Opened OpenCopy(Name path, Error e) override { return Fails(e) ? nullptr : Wrap(real.OpenCopy(path, e)); }
    Opened OpenToOverwrite(Name path, Error e) override {
        return Fails(e) ? nullptr : Wrap(real.OpenToOverwrite(path, e));
    }
    void Move(Name from, Name to, Error e) override { Fails(e) ? void() : real.Move(from, to, e); }
    void Delete(Name path, Error e) override { Fails(e) ? void() : real.Delete(path, e); }
    void CreateFolder(Name path, Error e) override { Fails(e) ? void() : real.CreateFolder(path, e); }
    std::vector<FileName> List(Name path, Error e) override {
        std::vector<FileName> names;
        if (!Fails(e))
            names = real.List(path, e);
        Listed += names.size();
        return names;
    }

private:
    struct File final : OpenFile {
        File(FailingFiles& files, OpenFile& opened) : All(files), Real(&opened) {}
        File(FailingFiles& files, Opened opened) : File(files, *opened) { Own = std::move(opened); }
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
        void Rewind(Error e) override { All.Fails(e) ? void() : Real->Rewind(e); }
        std::int64_t Length(Error e) override { return All.Fails(e) ? 0 : Real->Length(e); }
        FailingFiles& All;
        OpenFile* Real;
        Opened Own;
    };
    struct New final : NewFile {
        New(FailingFiles& files, Name path, std::unique_ptr<NewFile> opened)
            : All(files), Path(path), Real(std::move(opened)) {}
        OpenFile& Content() override { return Written; }
        void TakePlace(Error e) override {
            All.Log.emplace_back("exchange");
            if (!All.LosesTheOldFile)
                return All.Fails(e) ? void() : Real->TakePlace(e);
            All.real.Delete(Path, e);
            e = std::error_code(1177, std::system_category());
        }
        void KeepAs(Name path, Error e) override { All.Fails(e) ? void() : Real->KeepAs(path, e); }
        FailingFiles& All;
        FilePath Path;
        std::unique_ptr<NewFile> Real;
        File Written{All, Real->Content()};
    };

    /// Counts a call.
    /// @return whether this call fails. If so, sets the error.
    bool Fails(Error e) {
        const bool fails = ++Calls == FailAt || (Stays && Calls > FailAt);
        if (fails && EndsSuddenly)
            throw SuddenEnd{};
        e = fails ? std::make_error_code(Cause) : e;
        return fails;
    }
    Opened Wrap(Opened file) { return file ? std::make_unique<File>(*this, std::move(file)) : nullptr; }

    FileStatus status = {.What = FileStatus::Kind::Unknown}; // for files that cannot be checked
    FileOperations& real = Files();                          // the operations that were installed
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
