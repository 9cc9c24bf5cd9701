#include "shell/WindowTables.h"

#include "WebPages.h"
#include "platform/Desktop.h"
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

/// Returns the menu entry that opens one of WebPages. Disabled if the address is empty.
template <std::size_t Page>
constexpr MenuRow PageEntry(const char* name, QLatin1String caption) {
    return {name, caption, "mnuHI", [] { OpenWebPage(frmMain::Instance().Handle(), WebPages[Page]); },
            *WebPages[Page] != '\0'};
}

constexpr std::array Headings = {
    HeadingRow{"Label1", "Railwright", {60, 60, 1515, 195}},
    HeadingRow{"Label2", "Track Tools", {120, 360, 1335, 195}},
    HeadingRow{"Label3", "Element Tools", {120, 3360, 1335, 195}},
    HeadingRow{"Label4", "NoLimits Tools", {120, 4200, 1335, 195}},
};

constexpr std::array Labels = {
    ToolLabelRow{ToolGroup::Track, 0, "Overview", 600, 1335, Tabs::Overview},
    ToolLabelRow{ToolGroup::Track, 1, "Remove Data", 840, 1335, Tabs::RemoveData},
    ToolLabelRow{ToolGroup::Track, 2, "Move", 1080, 1335, Tabs::Move},
    ToolLabelRow{ToolGroup::Track, 3, "Scale", 1320, 1335, Tabs::Scale},
    ToolLabelRow{ToolGroup::Track, 4, "Rotate", 1560, 1335, Tabs::Rotate},
    ToolLabelRow{ToolGroup::Track, 5, "Mirror", 1800, 1335, Tabs::Mirror},
    ToolLabelRow{ToolGroup::Track, 6, "Tunnel Test", 2040, 1335, Tabs::TunnelTest},
    ToolLabelRow{ToolGroup::Track, 7, "Shuttle Make", 2280, 1335, Tabs::ShuttleMake},
    ToolLabelRow{ToolGroup::Track, 8, "Backwards Rebuild", 2520, 1455, Tabs::BackwardsRebuild},
    ToolLabelRow{ToolGroup::Track, 9, "Node Smoother", 2760, 1455, Tabs::NodeSmoother},
    ToolLabelRow{ToolGroup::Track, 10, "3DS Renamer", 3000, 1455, Tabs::Renamer},
    ToolLabelRow{ToolGroup::Element, 0, "Reverse", 3600, 1335, Tabs::ElementReverse},
    ToolLabelRow{ToolGroup::Element, 1, "Rotate", 3840, 1335, Tabs::ElementRotate},
    ToolLabelRow{ToolGroup::NoLimits, 0, "Env-Organizer", 4440, 1335, Tabs::EnvironmentOrganizer},
    ToolLabelRow{ToolGroup::NoLimits, 1, "File Association", 4680, 1335, Tabs::FileAssociation},
};

constexpr std::array Menus = {
    MenuRow{"mnuF", QLatin1String("File"), nullptr, nullptr},
    MenuRow{"mnuOpen", QLatin1String("Open..."), "mnuF", frmMain::mnuOpen_Click},
    MenuRow{"mnuSaveAs", QLatin1String("Save As..."), "mnuF", frmMain::mnuSaveAs_Click},
    MenuRow{"mnuF1", Separator, "mnuF", nullptr},
    MenuRow{"mnuExit", QLatin1String("Exit"), "mnuF", frmMain::mnuExit_Click},
    MenuRow{"mnuT", QLatin1String("Track"), nullptr, nullptr},
    MenuRow{"mnuTOverview", QLatin1String("Overview"), "mnuT", Show<Tabs::Overview>},
    MenuRow{"mnuTRemove", QLatin1String("Remove Data"), "mnuT", Show<Tabs::RemoveData>},
    MenuRow{"mnuTMove", QLatin1String("Move"), "mnuT", Show<Tabs::Move>},
    MenuRow{"mnuTScale", QLatin1String("Scale"), "mnuT", Show<Tabs::Scale>},
    MenuRow{"mnuTRotate", QLatin1String("Rotate"), "mnuT", Show<Tabs::Rotate>},
    MenuRow{"mnuTMirror", QLatin1String("Mirror"), "mnuT", Show<Tabs::Mirror>},
    MenuRow{"mnuTTunnel", QLatin1String("Tunnel Test"), "mnuT", Show<Tabs::TunnelTest>},
    MenuRow{"mnuTShuttle", QLatin1String("Shuttle Maker"), "mnuT", Show<Tabs::ShuttleMake>},
    MenuRow{"mnuTBackwards", QLatin1String("Backwards Rebuilder"), "mnuT", Show<Tabs::BackwardsRebuild>},
    MenuRow{"mnuTSmoother", QLatin1String("Node Smoother"), "mnuT", Show<Tabs::NodeSmoother>},
    MenuRow{"mnuT3dsRenamer", QLatin1String("3DS Renamer"), "mnuT", Show<Tabs::Renamer>},
    MenuRow{"mnuE", QLatin1String("Element"), nullptr, nullptr},
    MenuRow{"mnuEReverse", QLatin1String("Reverse"), "mnuE", Show<Tabs::ElementReverse>},
    MenuRow{"mnuERotate", QLatin1String("Rotate"), "mnuE", Show<Tabs::ElementRotate>},
    MenuRow{"mnuNL", QLatin1String("NoLimits"), nullptr, nullptr},
    MenuRow{"mnuNLEnvOrganizer", QLatin1String("Environment Organizer"), "mnuNL",
            Show<Tabs::EnvironmentOrganizer>},
    MenuRow{"mnuNLFileAssoc", QLatin1String("File Association"), "mnuNL", Show<Tabs::FileAssociation>},
    MenuRow{"mnuH", QLatin1String("Info"), nullptr, nullptr},
    MenuRow{"mnuHI", QLatin1String("Internet"), "mnuH", nullptr},
    PageEntry<0>("mnuHINoLimits", QLatin1String("NoLimits Website")),
    MenuRow{"mnuHI1", Separator, "mnuHI", nullptr},
    PageEntry<1>("mnuHIVesna", QLatin1String("Vesna's NoLimits Tools")),
    MenuRow{"mnuHI2", Separator, "mnuHI", nullptr},
    PageEntry<2>("mnuHIRidehaven", QLatin1String("Ridehaven")),
    PageEntry<3>("mnuHISweetgrade", QLatin1String("Sweetgrade")),
    PageEntry<4>("mnuHILoopkammer", QLatin1String("Loopkammer (German)")),
    PageEntry<5>("mnuHIBrisko", QLatin1String("Brisko's Texture Tutorials")),
    MenuRow{"mnuH1", Separator, "mnuH", nullptr},
    MenuRow{"mnuHAbout", QLatin1String("About..."), "mnuH", Show<Tabs::About>},
};

} // namespace

const char* ArrayOf(ToolGroup group) {
    static constexpr std::array names = {"lblTrackTools", "lblElementTools", "lblNolimitsTools"};
    return names[static_cast<std::size_t>(group)];
}

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
