#include "platform/FileOperations.h"

namespace railwright {
namespace {

FileOperations*& InForce() {
    static FileOperations* operations = &SystemFiles();
    return operations;
}

} // namespace

FileOperations& Files() {
    return *InForce();
}

ScopedFileOperations::ScopedFileOperations(FileOperations& replacement) : before(InForce()) {
    InForce() = &replacement;
}

ScopedFileOperations::~ScopedFileOperations() {
    InForce() = before;
}

} // namespace railwright
