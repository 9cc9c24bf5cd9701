#include "shell/mMain.h"

#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
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
#include "track/mNoLimits_TrackIO_1_3.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>

namespace railwright {

FilePath sNoLimitsPath;
std::int16_t iDocumentKind = DocumentKinds::None;
FilePath sDocumentFile;
bool bDocumentChanged = false;

namespace {

constexpr const char* SimulatorProgram = "NoLimitsSimulator.exe";

/// A kind of document, and how the window deals with its files.
struct DocumentFlow {
    std::int16_t Kind;
    std::string_view Extension;
    FileResult (*Load)(const FilePath&);
    FileResult (*Save)(const FilePath&);
    void (*Refresh)();
    const char* SaveTitle;
    const char* SaveFilter;
    const char* LoadError;
    const char* SaveError;
};

const std::array DocumentFlows = {
    DocumentFlow{DocumentKinds::Track, TrackExtension, LoadTrackFile, SaveTrackFile, RefreshTrackTools,
                 "Save NoLimits Track File...", "NoLimits Tracks (*.nltrack)|*.nltrack",
                 "Error Loading Track File!", "Error Saving Track File!"},
    DocumentFlow{DocumentKinds::Element, ElementExtension, LoadElementFile, SaveElementFile,
                 RefreshElementTools, "Save NoLimits Element File...",
                 "NoLimits Elements (*.nlelem)|*.nlelem", "Error Loading Element File!",
                 "Error Saving Element File!"},
};

const DocumentFlow* FlowOf(const FilePath& file) {
    const auto found =
        std::find_if(DocumentFlows.begin(), DocumentFlows.end(),
                     [&](const DocumentFlow& flow) { return HasExtension(file.Native(), flow.Extension); });
    return found == DocumentFlows.end() ? nullptr : &*found;
}

/// Asks for a file that exists.
/// @return its path, empty on Cancel.
FilePath AskForFile(const std::string& title, std::string filter, const std::string& extension,
                    const FilePath& folder) {
    std::string file;
    std::string fileTitle;
    bool readOnly = false;
    std::int32_t filterIndex = 1;
    std::int32_t flags = 0;
    ShowOpenFileDialog(file, fileTitle, true, readOnly, true, filter, filterIndex, folder.Native(), title,
                       extension, frmMain::Instance().Handle(), flags);
    return FilePath::FromUser(file);
}

void ShowError(const std::string& text) {
    ShowMessageBox(frmMain::Instance().Handle(), text, "Error", MessageButtons::Ok, MessageIcon::Exclamation);
}

/// The folder beside the program, of the registry, or of the user's choice.
std::optional<FilePath> SimulatorFolder() {
    const FilePath beside = ProgramFolder();
    if (FileExists(NameLookup().Find(beside, FileName(SimulatorProgram))))
        return beside;
    std::string registered;
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
    const FilePath chosen = AskForFile("Locate NoLimits Simulator...",
                                       std::string("NoLimits Simulator|") + SimulatorProgram, "exe", {});
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
        ShowError(flow.LoadError);
        return false;
    }
    sDocumentFile = file;
    iDocumentKind = flow.Kind;
    return RunWaiting(flow.Refresh);
}

/// @return the name chosen to save under, empty on Cancel.
FilePath AskForName(const DocumentFlow& flow) {
    std::string file = sDocumentFile.Native();
    std::string fileTitle;
    std::string filter = flow.SaveFilter;
    std::int32_t filterIndex = 1;
    std::int32_t flags = 0;
    ShowSaveFileDialog(file, fileTitle, true, filter, filterIndex, sNoLimitsPath.Native(), flow.SaveTitle,
                       std::string(flow.Extension.substr(1)), frmMain::Instance().Handle(), flags);
    return FilePath::FromUser(file);
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
        sFile = AskForFile("Open NoLimits File...",
                           "NoLimits Files (*.nltrack;*.nlelem)|*.nltrack;*.nlelem|"
                           "NoLimits Tracks (*.nltrack)|*.nltrack|NoLimits Elements (*.nlelem)|*.nlelem",
                           "nltrack", sNoLimitsPath);
    if (sFile.IsEmpty())
        return false;
    bDocumentChanged = false;
    const DocumentFlow* const flow = FlowOf(sFile);
    if (flow == nullptr) {
        ShowError("Unknown File Type!");
        sDocumentFile = {};
    }
    if (flow == nullptr || !OpenDocument(sFile, *flow)) {
        iDocumentKind = DocumentKinds::None;
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
    const DocumentFlow* const flow = iDocumentKind == DocumentKinds::None ? nullptr : FlowOf(sDocumentFile);
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
            std::string message = flow->SaveError;
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
    ApplyTool(DocumentKinds::Track, change, RefreshTrackTools);
}

void ApplyElementTool(const std::function<void()>& change) {
    ApplyTool(DocumentKinds::Element, change, RefreshElementTools);
}

} // namespace railwright
