#include "shell/panels/mNLT_Remove.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Remove.h"

#include <QCheckBox>

namespace railwright {
namespace {

/// A check box. The rows are ordered from top to bottom.
struct Row {
    int Index;
    const char* Caption;
    bool TrackDataClasses::*Class;
    bool Indented;
};

constexpr std::array Rows = {
    Row{0, "Track", &TrackDataClasses::Track, false},
    Row{1, "Tunnels", &TrackDataClasses::Tunnels, true},
    Row{2, "Custom Colors", &TrackDataClasses::CustomColors, true},
    Row{3, "Free Nodes", &TrackDataClasses::FreeNodes, false},
    Row{4, "Fundamental Nodes (Footers)", &TrackDataClasses::FundamentalNodes, false},
    Row{5, "Pre-Fabricated Support Nodes", &TrackDataClasses::PreFabSupports, false},
    Row{6, "Support Beams", &TrackDataClasses::SupportBeams, false},
    Row{12, "Wooden Catwalks", &TrackDataClasses::WoodCatwalks, false},
    Row{7, "Terrain", &TrackDataClasses::Terrain, false},
    Row{8, "Trees", &TrackDataClasses::Trees, false},
    Row{9, "3D Objects", &TrackDataClasses::SceneryObjects, false},
    Row{10, "Author's Comments", &TrackDataClasses::AuthorComments, false},
    Row{11, "Prefered Environment", &TrackDataClasses::PreferredEnvironment, false},
};

constexpr std::array ButtonCaptions = {"Select All", "UnSelect All", "Remove Selected Data"};

constexpr int Left = 180;
constexpr int Indent = 240;
constexpr int FirstTop = 180;
constexpr int Step = 285;
constexpr int ButtonTop = FirstTop + static_cast<int>(Rows.size()) * Step + 180;
constexpr int ButtonWidth = 2310;

} // namespace

RemovePanel::RemovePanel(ucFrame& frame) {
    int top = FirstTop;
    for (const Row& row : Rows) {
        const int left = row.Indented ? Left + Indent : Left;
        QCheckBox* const box =
            AddCheckBox(frame, Indexed("chkRemove", row.Index), row.Caption, {left, top, 3600, 195}, false);
        QObject::connect(box, &QCheckBox::toggled, box, [this] { chkRemove_Click(); });
        chkRemove[static_cast<std::size_t>(row.Index)] = box;
        top += Step;
    }
    for (int index = 0; const char* caption : ButtonCaptions) {
        QPushButton* const button =
            AddButton(frame, Indexed("btnRemove", index), caption,
                      {Left + index * (ButtonWidth + 120), ButtonTop, ButtonWidth, 375});
        QObject::connect(button, &QPushButton::clicked, button, [this, index] { btnRemove_Click(index); });
        ++index;
    }
}

void RemovePanel::chkRemove_Click() {
    // Removing the track removes both.
    chkRemove[1]->setEnabled(!chkRemove[0]->isChecked());
    chkRemove[2]->setEnabled(!chkRemove[0]->isChecked());
}

void RemovePanel::btnRemove_Click(int Index) {
    if (Index < 2) {
        for (QCheckBox* const box : chkRemove)
            box->setChecked(Index == 0);
        return;
    }
    TrackDataClasses classes;
    for (const Row& row : Rows)
        classes.*row.Class = chkRemove[static_cast<std::size_t>(row.Index)]->isChecked();
    ApplyTrackTool([&] { RemoveTrackData(classes); });
}

} // namespace railwright
