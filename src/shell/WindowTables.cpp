#include "shell/WindowTables.h"

#include "platform/Desktop.h"
#include "shell/WebPages.h"
#include "shell/panels/About.h"
#include "shell/panels/mNLE_Reverse.h"
#include "shell/panels/mNLE_Rotate.h"
#include "shell/panels/mNLT_3DSRenamer.h"
#include "shell/panels/mNLT_Backwards.h"
#include "shell/panels/mNLT_Mirror.h"
#include "shell/panels/mNLT_Move.h"
#include "shell/panels/mNLT_Overview.h"
#include "shell/panels/mNLT_Remove.h"
#include "shell/panels/mNLT_Rotate.h"
#include "shell/panels/mNLT_Scale.h"
#include "shell/panels/mNLT_ShuttleMake.h"
#include "shell/panels/mNLT_Smoother.h"
#include "shell/panels/mNLT_TunnelTest.h"
#include "shell/panels/mTool_EnvironmentCleaner.h"
#include "shell/panels/mTool_TrackAssociation.h"

namespace railwright {
namespace {

template <class Kind>
std::unique_ptr<ToolPanel> Make(ucFrame& frame) {
    return std::make_unique<Kind>(frame);
}

template <std::int16_t Tab>
void Show() {
    frmMain::Instance().ShowTab(Tab);
}

template <const char* const& Page>
void Visit() {
    OpenWebPage(frmMain::Instance().Handle(), Page);
}

constexpr const char* TrackTools = "lblTrackTools";
constexpr const char* ElementTools = "lblElementTools";
constexpr const char* NoLimitsTools = "lblNolimitsTools";

constexpr std::array Headings = {
    HeadingRow{"Label1", "Railwright", {60, 60, 1515, 195}},
    HeadingRow{"Label2", "Track Tools", {120, 360, 1335, 195}},
    HeadingRow{"Label3", "Element Tools", {120, 3360, 1335, 195}},
    HeadingRow{"Label4", "NoLimits Tools", {120, 4200, 1335, 195}},
};

constexpr std::array Labels = {
    ToolLabelRow{TrackTools, 0, "Overview", 600, 1335, 1},
    ToolLabelRow{TrackTools, 1, "Remove Data", 840, 1335, 2},
    ToolLabelRow{TrackTools, 2, "Move", 1080, 1335, 3},
    ToolLabelRow{TrackTools, 3, "Scale", 1320, 1335, 4},
    ToolLabelRow{TrackTools, 4, "Rotate", 1560, 1335, 5},
    ToolLabelRow{TrackTools, 5, "Mirror", 1800, 1335, 6},
    ToolLabelRow{TrackTools, 6, "Tunnel Test", 2040, 1335, 7},
    ToolLabelRow{TrackTools, 7, "Shuttle Make", 2280, 1335, 8},
    ToolLabelRow{TrackTools, 8, "Backwards Rebuild", 2520, 1455, 9},
    ToolLabelRow{TrackTools, 9, "Node Smoother", 2760, 1455, 14},
    ToolLabelRow{TrackTools, 10, "3DS Renamer", 3000, 1455, 15},
    ToolLabelRow{ElementTools, 0, "Reverse", 3600, 1335, 10},
    ToolLabelRow{ElementTools, 1, "Rotate", 3840, 1335, 11},
    ToolLabelRow{NoLimitsTools, 0, "Env-Organizer", 4440, 1335, 12},
    ToolLabelRow{NoLimitsTools, 1, "File Association", 4680, 1335, 13},
};

constexpr std::array Menus = {
    MenuRow{"mnuF", QLatin1String("File"), nullptr, nullptr},
    MenuRow{"mnuOpen", QLatin1String("Open..."), "mnuF", frmMain::mnuOpen_Click},
    MenuRow{"mnuSaveAs", QLatin1String("Save As..."), "mnuF", frmMain::mnuSaveAs_Click},
    MenuRow{"mnuF1", Separator, "mnuF", nullptr},
    MenuRow{"mnuExit", QLatin1String("Exit"), "mnuF", frmMain::mnuExit_Click},
    MenuRow{"mnuT", QLatin1String("Track"), nullptr, nullptr},
    MenuRow{"mnuTOverview", QLatin1String("Overview"), "mnuT", Show<1>},
    MenuRow{"mnuTRemove", QLatin1String("Remove Data"), "mnuT", Show<2>},
    MenuRow{"mnuTMove", QLatin1String("Move"), "mnuT", Show<3>},
    MenuRow{"mnuTScale", QLatin1String("Scale"), "mnuT", Show<4>},
    MenuRow{"mnuTRotate", QLatin1String("Rotate"), "mnuT", Show<5>},
    MenuRow{"mnuTMirror", QLatin1String("Mirror"), "mnuT", Show<6>},
    MenuRow{"mnuTTunnel", QLatin1String("Tunnel Test"), "mnuT", Show<7>},
    MenuRow{"mnuTShuttle", QLatin1String("Shuttle Maker"), "mnuT", Show<8>},
    MenuRow{"mnuTBackwards", QLatin1String("Backwards Rebuilder"), "mnuT", Show<9>},
    MenuRow{"mnuTSmoother", QLatin1String("Node Smoother"), "mnuT", Show<14>},
    MenuRow{"mnuT3dsRenamer", QLatin1String("3DS Renamer"), "mnuT", Show<15>},
    MenuRow{"mnuE", QLatin1String("Element"), nullptr, nullptr},
    MenuRow{"mnuEReverse", QLatin1String("Reverse"), "mnuE", Show<10>},
    MenuRow{"mnuERotate", QLatin1String("Rotate"), "mnuE", Show<11>},
    MenuRow{"mnuNL", QLatin1String("NoLimits"), nullptr, nullptr},
    MenuRow{"mnuNLEnvOrganizer", QLatin1String("Environment Organizer"), "mnuNL", Show<12>},
    MenuRow{"mnuNLFileAssoc", QLatin1String("File Association"), "mnuNL", Show<13>},
    MenuRow{"mnuH", QLatin1String("Info"), nullptr, nullptr},
    MenuRow{"mnuHI", QLatin1String("Internet"), "mnuH", nullptr},
    MenuRow{"mnuHINoLimits", QLatin1String("NoLimits Website"), "mnuHI", Visit<WebPages::NoLimits>},
    MenuRow{"mnuHI1", Separator, "mnuHI", nullptr},
    MenuRow{"mnuHIVesna", QLatin1String("Vesna's NoLimits Tools"), "mnuHI", Visit<WebPages::Vesna>},
    MenuRow{"mnuHI2", Separator, "mnuHI", nullptr},
    MenuRow{"mnuHIRidehaven", QLatin1String("Ridehaven"), "mnuHI", Visit<WebPages::Ridehaven>},
    MenuRow{"mnuHISweetgrade", QLatin1String("Sweetgrade"), "mnuHI", Visit<WebPages::Sweetgrade>},
    MenuRow{"mnuHILoopkammer", QLatin1String("Loopkammer (German)"), "mnuHI", Visit<WebPages::Loopkammer>},
    MenuRow{"mnuHIBrisko", QLatin1String("Brisko's Texture Tutorials"), "mnuHI", Visit<WebPages::Brisko>},
    MenuRow{"mnuH1", Separator, "mnuH", nullptr},
    MenuRow{"mnuHAbout", QLatin1String("About..."), "mnuH", Show<0>},
};

} // namespace

const std::span<const HeadingRow> HeadingRows = Headings;
const std::span<const ToolLabelRow> ToolLabelRows = Labels;
const std::span<const MenuRow> MenuRows = Menus;

const std::array<PanelRow, Tabs::Count> PanelRows = {{
    {"About Railwright...", false, Make<AboutPanel>},
    {"Track Tool: Overview", false, Make<OverviewPanel>},
    {"Track Tool: Remove Data", false, Make<RemovePanel>},
    {"Track Tool: Move", true, Make<MovePanel>},
    {"Track Tool: Scale", true, Make<ScalePanel>},
    {"Track Tool: Rotate", true, Make<RotatePanel>},
    {"Track Tool: Mirror", true, Make<MirrorPanel>},
    {"Track Tool: Tunnel Test", false, Make<TunnelTestPanel>},
    {"Track Tool: Shuttle Make", false, Make<ShuttleMakePanel>},
    {"Track Tool: Backwards Rebuild", false, Make<BackwardsPanel>},
    {"Element Tool: Reverse", true, Make<ElementReversePanel>},
    {"Element Tool: Rotate", true, Make<ElementRotatePanel>},
    {"NoLimits Tool: Environment Organizer", false, Make<EnvironmentOrganizerPanel>},
    {"NoLimits Tool: File Association", false, Make<FileAssociationPanel>},
    {"Track Tool: Node Smoother", false, Make<SmootherPanel>},
    {"Track Tool: 3DS Renamer", false, Make<RenamerPanel>},
}};

} // namespace railwright
