#pragma once

#include "platform/FileOperations.h"
#include "platform/posix/HeldSignals.h"

#include <string>
#include <vector>

namespace railwright {

/// @return the last failure of a system call on this thread.
std::error_code LastError();

/// An open file by its descriptor.
class PosixFile final : public OpenFile {
public:
    explicit PosixFile(int opened) : descriptor(opened) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() override;

    int Descriptor() const { return descriptor; }
    /// Holds the signals that end the process until the file is closed.
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

/// @return the names in a folder, given in native form, in no order.
std::vector<std::string> NamesIn(const std::string& native, std::error_code& error);

/// Opens a file as the system's call of that name does.
/// @param native the path in native form.
/// @return null on failure.
std::unique_ptr<PosixFile> OpenNative(const std::string& native, int flags, unsigned mode,
                                      std::error_code& error);

} // namespace railwright
