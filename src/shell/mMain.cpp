#include "shell/mMain.h"

#include "documents/DocumentKinds.h"
#include "install/mWinRegistry.h"
#include "platform/CodePage.h"
#include "platform/Desktop.h"
#include "platform/InPlace.h"
#include "platform/NameLookup.h"
#include "platform/WholeFile.h"
#include "platform/WinePrefix.h"
#include "shell/frmMain.h"
#include "shell/mFileDialog.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>

namespace railwright {

FilePath sNoLimitsPath;
std::int16_t iDocumentKind = CurrentDocument::None;
FilePath sDocumentFile;
bool bDocumentChanged = false;

namespace {

constexpr const char* SimulatorProgram = "NoLimitsSimulator.exe";

/// A kind of document and how the window handles it.
struct DocumentFlow : DocumentKind {
    std::int16_t Number;
    void (*Refresh)();

    /// Replaces the "#" in a pattern by the kind's name.
    std::string Text(std::string pattern) const { return pattern.replace(pattern.find('#'), 1, Name); }
    /// Returns the label and the mask of its files, for a dialog.
    std::string Filter() const {
        const std::string mask = "*" + std::string(Extension);
        return Text("NoLimits #s (") + mask + ")|" + mask;
    }
};

constexpr std::array DocumentFlows = {
    DocumentFlow{TrackKind, CurrentDocument::Track, RefreshTrackTools},
    DocumentFlow{ElementKind, CurrentDocument::Element, RefreshElementTools}};

/// Asks for an existing file.
/// @return its path; empty on Cancel.
FilePath AskForFile(FileDialog dialog) {
    dialog.iOwner = frmMain::Instance().Handle();
    ShowOpenFileDialog(dialog);
    return FilePath::FromUser(dialog.sFileName);
}

/// @param reason the error of the file, shown below the text.
void ShowError(const std::string& text, const FilePath& file = {}, const std::string& reason = {}) {
    ShowMessageBox(frmMain::Instance().Handle(), text, "Error", MessageButtons::Ok, MessageIcon::Exclamation,
                   reason.empty() ? "" : file.Name().Shown() + ": " + reason);
}

void ShowNote(const std::string& text, const std::string& details = {}) {
    ShowMessageBox(frmMain::Instance().Handle(), text, "Note", MessageButtons::Ok, MessageIcon::Information,
                   details);
}

/// Reports that there is no document. After a failed open, the controls may still show the previous one.
void ShowNoDocument(const std::string& toDo) {
    ShowNote("There is no document to " + toDo + '.');
}

/// Returns the folder of the program or of the registry, or the user's choice.
std::optional<FilePath> SimulatorFolder() {
    const FilePath beside = ProgramFolder();
    if (FileExists(NameLookup().Find(beside, FileName(SimulatorProgram))))
        return beside;
    text registered;
    if (ReadRegistryValue(HKEY_CURRENT_USER, "Software\\NoLimits Coasters", "InstPath", registered))
        return FromWindowsPath(ToUtf8(registered, SystemCodePage()));
    if (const auto installed = ReadWineRegistry("software\\nolimits coasters", "instpath"))
        return FromWindowsPath(*installed);

    const WindowHandle owner = frmMain::Instance().Handle();
    if (ShowMessageBox(owner,
                       "Unable to locate your NoLimits Installation Path.\r\n"
                       "This path is required to use some of the Tools featured in this Railwright.\r\n"
                       "Locate this path yourself?",
                       "Unknown NoLimits Path", MessageButtons::YesNo,
                       MessageIcon::Question) != MessageAnswer::Yes)
        return std::nullopt;
    const FilePath chosen = AskForFile({.sFilter = std::string("NoLimits Simulator|") + SimulatorProgram,
                                        .sDialogTitle = "Locate NoLimits Simulator...",
                                        .sDefaultExt = "exe"});
    if (chosen.IsEmpty())
        return std::nullopt;
    ShowNote("To prevent this message in the future, run Railwright from your NoLimits Folder.");
    return chosen.Folder();
}

/// Runs a task with the wait cursor.
/// @return false if memory was insufficient.
bool RunWaiting(const std::function<void()>& task) {
    try {
        const WaitPointer wait;
        task();
        return true;
    } catch (const std::bad_alloc&) {
        ShowError("There is not enough memory for this document!");
        return false;
    }
}

/// Opens a file as a document of one kind. Reports errors to the user.
bool OpenDocument(const FilePath& file, const DocumentFlow& flow) {
    FileResult loaded;
    {
        const WaitPointer wait;
        loaded = flow.Load(file);
    }
    if (!loaded) {
        ShowError(flow.Text("Error Loading # File!"), file, loaded.WithByte());
        return false;
    }
    sDocumentFile = file;
    iDocumentKind = flow.Number;
    return RunWaiting(flow.Refresh);
}

bool AskYesNo(const std::string& question) {
    return ShowMessageBox(frmMain::Instance().Handle(), question, "Save As", MessageButtons::YesNo,
                          MessageIcon::Question) == MessageAnswer::Yes;
}

bool AskToReplace(const FilePath& file) {
    return AskYesNo(file.Name().Shown() + " already exists.\r\nDo you want to replace it?");
}

/// Offers to continue with the name that was written. After a save under another extension, sDocumentFile has
/// no known extension.
/// @param name receives the name that was written.
/// @return whether the user wants to continue with it.
bool AskForWrittenName(const DocumentFlow& flow, FilePath& name) {
    name = name.WithEnding(flow.Extension);
    return AskYesNo("The document was saved as " + name.Name().Shown() +
                    ".\r\nSave it under that name again?");
}

/// @param offered the initial name in the dialog.
/// @return the chosen name; empty on Cancel.
FilePath AskForName(const DocumentFlow& flow, const FilePath& offered) {
    FileDialog dialog = {.sFileName = offered.Native(),
                         .sFilter = flow.Filter(),
                         .sInitialDir = sNoLimitsPath.Native(),
                         .sDialogTitle = flow.Text("Save NoLimits # File..."),
                         .sDefaultExt = std::string(flow.Extension.substr(1)),
                         .iOwner = frmMain::Instance().Handle()};
    ShowSaveFileDialog(dialog);
    return FilePath::FromUser(dialog.sFileName);
}

void ApplyTool(std::int16_t kind, const std::function<void()>& change, void (*refresh)()) {
    if (iDocumentKind == CurrentDocument::None)
        ShowNoDocument("change");
    if (iDocumentKind != kind)
        return;
    RunWaiting([&] {
        change();
        refresh();
    });
    frmMain::Instance().HasChanged();
}

} // namespace

bool LocateNoLimitsPath() {
    const std::optional<FilePath> folder = SimulatorFolder();
    if (folder)
        sNoLimitsPath = folder->AsFolder();
    return folder.has_value();
}

bool OpenNoLimitsFile(FilePath sFile) {
    if (sFile.IsEmpty())
        sFile = AskForFile({.sFilter = "NoLimits Files (*.nltrack;*.nlelem)|*.nltrack;*.nlelem|" +
                                       DocumentFlows[0].Filter() + '|' + DocumentFlows[1].Filter(),
                            .sInitialDir = sNoLimitsPath.Native(),
                            .sDialogTitle = "Open NoLimits File...",
                            .sDefaultExt = "nltrack"});
    if (sFile.IsEmpty())
        return false;
    bDocumentChanged = false;
    const DocumentFlow* const flow = KindOf(DocumentFlows, sFile.Native());
    if (flow == nullptr) {
        ShowError("Unknown File Type!", sFile, OfNoKind);
        sDocumentFile = {};
    }
    if (flow == nullptr || !OpenDocument(sFile, *flow)) {
        iDocumentKind = CurrentDocument::None;
        return false;
    }
    frmMain& window = frmMain::Instance();
    window.ShowTab(Tabs::About);
    window.UpdateMenus();
    window.ShowFileName();
    return true;
}

bool SaveNoLimitsFile() {
    frmMain& window = frmMain::Instance();
    if (iDocumentKind == CurrentDocument::None) {
        ShowNoDocument("save");
        if (sDocumentFile.IsEmpty() && !window.HasStar())
            window.ShowFileName();
        return true;
    }
    const DocumentFlow& flow = *std::find_if(DocumentFlows.begin(), DocumentFlows.end(),
                                             [](const auto& each) { return each.Number == iDocumentKind; });
    FilePath offered = sDocumentFile;
    if (!HasExtension(offered.Native(), flow.Extension) && !AskForWrittenName(flow, offered))
        return true;
    const FilePath chosen = AskForName(flow, offered);
    if (chosen.IsEmpty())
        return true;
    // The dialog has asked about a file of the chosen name, but not of the name that is written.
    const FilePath written =
        HasExtension(chosen.Native(), flow.Extension) ? chosen : chosen.WithEnding(flow.Extension);
    if (written != chosen && FileExists(written) && !AskToReplace(written))
        return true;
    FileResult saved;
    {
        const WaitPointer wait;
        saved = flow.Save(chosen);
    }
    if (!saved) {
        ShowError(flow.Text("Error Saving # File!"), chosen, saved.Reason);
        return false;
    }
    sDocumentFile = chosen;
    if (written != chosen)
        ShowNote("The document was saved as " + written.Name().Shown() + '.');
    if (!saved.OldKeptIn.IsEmpty())
        ShowNote("An earlier save of this file was interrupted. The old content of the file is in",
                 saved.OldKeptIn.Shown());
    bDocumentChanged = false;
    window.ShowFileName();
    return true;
}

void ShowInterruptedSaves() {
    std::string paths;
    for (const FilePath& copy : LeftCopies())
        paths += (paths.empty() ? "" : "\r\n") + copy.Shown();
    if (!paths.empty())
        ShowNote("A save was interrupted. The old content of the file is in", paths);
}

void RefreshTrackTools() {
    frmMain& window = frmMain::Instance();
    window.RefreshPanels(DrawAndMeasureTrack(window.Plan(), window.Side()));
}

void RefreshElementTools() {
    frmMain& window = frmMain::Instance();
    AnalyzeElement();
    DrawElementPreview(window.Plan(), window.Side());
}

void ApplyTrackTool(const std::function<void()>& change) {
    ApplyTool(CurrentDocument::Track, change, RefreshTrackTools);
}

void ApplyElementTool(const std::function<void()>& change) {
    ApplyTool(CurrentDocument::Element, change, RefreshElementTools);
}

} // namespace railwright
