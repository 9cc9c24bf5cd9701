#pragma once

#include "platform/FileOperations.h"
#include "platform/posix/HeldSignals.h"

#include <string>
#include <vector>

namespace railwright {

/// Returns the error of the last failed system call on this thread.
std::error_code LastError();

/// An open file descriptor.
class PosixFile final : public OpenFile {
public:
    explicit PosixFile(int opened) : descriptor(opened) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() override;

    int Descriptor() const { return descriptor; }
    /// Holds back termination signals until the file is closed.
    void HoldSignals() { held = std::make_unique<HeldSignals>(); }

    std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) override;
    std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) override;
    void CutOff(std::error_code& error) override;
    void Flush(std::error_code& error) override;
    void Rewind(std::error_code& error) override;
    std::int64_t Length(std::error_code& error) override;

private:
    int descriptor;
    std::unique_ptr<HeldSignals> held;
};

/// Returns the names in a folder, unordered.
/// @param native the native path of the folder.
std::vector<std::string> NamesIn(const std::string& native, std::error_code& error);

/// Opens a file; see open(2).
/// @param native the native path.
/// @return null on failure.
std::unique_ptr<PosixFile> OpenNative(const std::string& native, int flags, unsigned mode,
                                      std::error_code& error);

} // namespace railwright
