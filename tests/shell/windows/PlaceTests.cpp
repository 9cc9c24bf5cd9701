#include "platform/WholeFile.h"
#include "platform/windows/Errors.h"
#include "platform/windows/Wide.h"
#include "tests/shell/WindowTests.h"

#include <windows.h>

namespace railwright::testing {

void WindowTests::OpensFromSharesAndDeepFolders() {
    TemporaryFolder own;
    std::string deep = "deep";
    while (own.File(deep).size() < MAX_PATH)
        deep += "\\" + std::string(60, 'd');
    QVERIFY(CreateFolders(own.Inside(deep)));
    const FilePath inDeepFolder = own.Inside(deep + "\\a.nltrack");
    // Wine's dialogs do not support shares, so the file is opened as by a double-click.
    const FilePath onShare = FilePath::FromUser("//server/share/railwright-window.nltrack");
    for (const FilePath& file : {inDeepFolder, onShare}) {
        QVERIFY(WriteWholeFile(file, ReadBytes(Comet)));
        const Program program(file.Native());
        QCOMPARE(program.Title(), QString::fromStdString("Railwright: " + file.Name().Native()));
        QVERIFY(sDocumentFile == file && DeleteFileW(NativePath(file).c_str()));
    }
    for (FilePath folder = inDeepFolder.Folder(); folder != own.Inside("deep").Folder();
         folder = folder.Folder())
        QVERIFY(RemoveDirectoryW(NativePath(folder).c_str()));
}

void WindowTests::LeavesAFileAloneThatAnotherProgramHolds() {
    Program program(Loop);
    const std::string file = program.Path("a.nlelem");
    const Bytes old = ReadBytes(Loop);
    WriteBytes(file, old);
    program.Click("btnEReverse");
    const QString title = "Save NoLimits Element File...";
    const HANDLE held = CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(held != INVALID_HANDLE_VALUE);
    SetLastError(ERROR_ACCESS_DENIED);
    const QString why = QString::fromStdString("a.nlelem: cannot be written: " + LastError().message());
    program.File(title, file)
        .Box(OverwriteQuestion(title, "a.nlelem"), "Yes")
        .Box("Error|Error Saving Element File!\n" + why + "|Warning|OK", "OK");
    program.Choose("mnuSaveAs");
    CloseHandle(held);
    QVERIFY(bDocumentChanged && program.Title() == "Railwright: loop.nlelem*");
    QVERIFY(ReadBytes(file) == old && program.Names() == std::vector<std::string>{"a.nlelem"});
    program.File(title, file).Box(OverwriteQuestion(title, "a.nlelem"), "Yes");
    program.Choose("mnuSaveAs");
    QVERIFY(!bDocumentChanged && ReadBytes(file) != old);
}

} // namespace railwright::testing
