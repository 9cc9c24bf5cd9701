#include "install/UnfinishedList.h"

#include "base/Text.h"
#include "install/mINI.h"
#include "install/modFileIO.h"
#include "platform/FileOperations.h"

namespace railwright {
namespace {

constexpr TextView ListHead = "Railwright has not finished organizing these environments:";
/// Ends each entry of the list. Never part of a file name.
constexpr char ListSeparator = '/';

} // namespace

FileResult ReadList(const FilePath& list, std::set<FileName>& names) {
    names.clear();
    std::error_code unknown;
    if (!Exists(list, unknown))
        return {};
    if (unknown)
        return FileResult::Failure("cannot be checked: " + unknown.message());
    text content;
    FileResult read = ReadTextFile(list, content);
    const text head = text(ListHead) + ListSeparator;
    const FileStatus status = Files().Status(list);
    if (status.What == FileStatus::Kind::Folder || (read && (status.IsLink || !content.starts_with(head))))
        read = FileResult::Failure("was not written by Railwright; move it away first");
    std::size_t end = 0;
    for (std::size_t at = head.size(); read && (end = content.find(ListSeparator, at)) != text::npos;
         at = end + 1)
        names.emplace(BytesOf(content.substr(at, end - at)));
    return read;
}

FileResult WriteList(const FilePath& list, const std::set<FileName>& names) {
    std::error_code error;
    if (names.empty()) {
        Files().Delete(list, error);
        return error ? FileResult::Failure("cannot be deleted: " + error.message()) : FileResult{};
    }
    text content = text(ListHead) + ListSeparator;
    for (const FileName& name : names)
        content += TextOf(name.Native()) + ListSeparator;
    return WriteTextFile(list, content);
}

} // namespace railwright
