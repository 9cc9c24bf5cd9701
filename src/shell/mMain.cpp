#include "shell/mMain.h"

#include "documents/DocumentKinds.h"
#include "install/mWinRegistry.h"
#include "platform/CodePage.h"
#include "platform/Desktop.h"
#include "platform/NameLookup.h"
#include "platform/UserLocale.h"
#include "platform/WholeFile.h"
#include "shell/frmMain.h"
#include "shell/mFileDialog.h"
#include "shell/panels/mNLT_3DSRenamer.h"
#include "shell/panels/mNLT_Overview.h"
#include "shell/panels/mNLT_ShuttleMake.h"
#include "tools/mNLT_Overview.h"

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

/// A kind of document, and how the window deals with it.
struct DocumentFlow : DocumentKind {
    std::int16_t Number;
    void (*Refresh)();

    /// A pattern with the kind's name in the place of its "#".
    std::string Text(std::string pattern) const { return pattern.replace(pattern.find('#'), 1, Name); }
    /// The label and mask of its files, for a dialog.
    std::string Filter() const {
        const std::string mask = "*" + std::string(Extension);
        return Text("NoLimits #s (") + mask + ")|" + mask;
    }
};

constexpr std::array DocumentFlows = {
    DocumentFlow{TrackKind, CurrentDocument::Track, RefreshTrackTools},
    DocumentFlow{ElementKind, CurrentDocument::Element, RefreshElementTools}};

/// Asks for a file that exists.
/// @return its path, empty on Cancel.
FilePath AskForFile(FileDialog dialog) {
    dialog.iOwner = frmMain::Instance().Handle();
    ShowOpenFileDialog(dialog);
    return FilePath::FromUser(dialog.sFileName);
}

void ShowError(const std::string& text) {
    ShowMessageBox(frmMain::Instance().Handle(), text, "Error", MessageButtons::Ok, MessageIcon::Exclamation);
}

/// The folder beside the program, of the registry, or of the user's choice.
std::optional<FilePath> SimulatorFolder() {
    const FilePath beside = ProgramFolder();
    if (FileExists(NameLookup().Find(beside, FileName(SimulatorProgram))))
        return beside;
    text registered;
    if (ReadRegistryValue(HKEY_CURRENT_USER, "Software\\NoLimits Coasters", "InstPath", registered))
        return FilePath::FromWindowsForm(ToUtf8(registered, SystemCodePage()));

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
    ShowMessageBox(owner, "To prevent this message in the future, run Railwright from your NoLimits Folder.",
                   "Note", MessageButtons::Ok, MessageIcon::Information);
    return chosen.Folder();
}

/// Runs what can take long, while the pointer tells to wait.
/// @return whether there was enough memory for it.
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

/// Opens a file whose extension tells what it is.
bool OpenDocument(const FilePath& file, const DocumentFlow& flow) {
    bool loaded = false;
    {
        const WaitPointer wait;
        loaded = flow.Load(file).Done;
    }
    if (!loaded) {
        ShowError(flow.Text("Error Loading # File!"));
        return false;
    }
    sDocumentFile = file;
    iDocumentKind = flow.Number;
    return RunWaiting(flow.Refresh);
}

/// @return the name chosen to save under, empty on Cancel.
FilePath AskForName(const DocumentFlow& flow) {
    FileDialog dialog = {.sFileName = sDocumentFile.Native(),
                         .sFilter = flow.Filter(),
                         .sInitialDir = sNoLimitsPath.Native(),
                         .sDialogTitle = flow.Text("Save NoLimits # File..."),
                         .sDefaultExt = std::string(flow.Extension.substr(1)),
                         .iOwner = frmMain::Instance().Handle()};
    ShowSaveFileDialog(dialog);
    return FilePath::FromUser(dialog.sFileName);
}

void ApplyTool(std::int16_t kind, const std::function<void()>& change, void (*refresh)()) {
    // After a failed open the controls of the document before are still there, but not its data.
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
        ShowError("Unknown File Type!");
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
    // What a failed open has left is not written over anything.
    const DocumentFlow* const flow =
        iDocumentKind == CurrentDocument::None ? nullptr : KindOf(DocumentFlows, sDocumentFile.Native());
    if (flow != nullptr) {
        const FilePath chosen = AskForName(*flow);
        if (chosen.IsEmpty())
            return true;
        FileResult saved;
        {
            const WaitPointer wait;
            saved = flow->Save(chosen);
        }
        if (!saved) {
            std::string message = flow->Text("Error Saving # File!");
            if (!saved.KeptIn.IsEmpty())
                message += "\r\nWhat was to be saved is in " + saved.KeptIn.Shown();
            if (!saved.OldKeptIn.IsEmpty())
                message += "\r\nWhat the file held before is in " + saved.OldKeptIn.Shown();
            ShowError(message);
            return false;
        }
        sDocumentFile = chosen;
    }
    bDocumentChanged = false;
    frmMain::Instance().ShowFileName();
    return true;
}

void RefreshTrackTools() {
    frmMain& window = frmMain::Instance();
    const TrackMeasures measures = DrawAndMeasureTrack(window.Plan(), window.Side());
    window.Panel<OverviewPanel>(Tabs::Overview)
        .ShowReport(BuildTrackOverview(sDocumentFile, UserNumberSeparators(), measures));
    // What is not built yet begins with the track that is in hand.
    if (auto* const panel = window.PanelIfBuilt<ShuttleMakePanel>(Tabs::ShuttleMake))
        panel->UpdateShuttleButton();
    if (auto* const panel = window.PanelIfBuilt<RenamerPanel>(Tabs::Renamer))
        panel->Refresh3DSRenamer();
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
