#include "shell/panels/mTool_TrackAssociation.h"

#include "install/mTool_TrackAssociation.h"
#include "platform/WinePrefix.h"
#include "shell/Controls.h"
#include "shell/frmMain.h"
#include "shell/mFileDialog.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

namespace railwright {
namespace {

constexpr const char* HelpText =
    "    File Association determines what your computer does with a track file when you "
    "Double-Click or Right-Click it in Windows Explorer (not Internet Explorer).  The Icon is "
    "the image that will show next to each track file.  Note that on some Windows configurations "
    "the Icon will not change until the computer is rebooted.";

/// A control of a group. The controls are placed below each other; Width is in twips.
struct Line {
    const char* Caption;
    int Width;
};

constexpr std::array DoubleClicks = {Line{"Ride", 615}, Line{"Edit", 615}, Line{"Terraform", 1035}};
constexpr std::array RightClicks = {Line{"Ride", 675}, Line{"Edit", 675}, Line{"Terraform", 1035},
                                    Line{"Railwright", 975}};
constexpr std::array Icons = {Line{"From Simulator", 1395},     Line{"From Editor", 1155},
                              Line{"Railwright Extra 1", 1575}, Line{"Railwright Extra 2", 1575},
                              Line{"Railwright Extra 3", 1575}, Line{"Railwright Extra 4", 1575},
                              Line{"Railwright Extra 5", 1575}, Line{"Specify My Own Icon:", 1935}};

constexpr QSize IconSize = {32, 32};

Place PlaceOf(std::size_t index, const Line& line) {
    return {120, 300 + 240 * static_cast<int>(index), line.Width, 195};
}

QGroupBox* AddGroup(ucFrame& frame, const char* name, const char* caption, const Place& place) {
    return Placed(new QGroupBox(caption, &frame), name, place);
}

/// Returns the index of the selected option.
template <class Options>
std::size_t SelectedIn(const Options& options) {
    const auto selected = std::find_if(options.begin(), options.end(),
                                       [](const QRadioButton* option) { return option->isChecked(); });
    return static_cast<std::size_t>(selected - options.begin());
}

} // namespace

FileAssociationPanel::FileAssociationPanel(ucFrame& frame) {
    AddDoubleClick(frame);
    AddRightClick(frame);
    for (std::size_t index = 0; index < imgNLIcons.size(); ++index) {
        const int number = static_cast<int>(index);
        auto* const icon = new Picture(frame, Indexed("imgNLIcons", number), Icons[index].Caption,
                                       {6960, 180 + 540 * number, 480, 480}, IconSize);
        icon->hide();
        imgNLIcons[index] = icon;
    }
    AddIcon(frame);
    btnNLAssoc = AddButton(frame, "btnNLAssoc", "Set File Association", {2340, 3060, 1995, 315});
    QObject::connect(btnNLAssoc, &QPushButton::clicked, btnNLAssoc, [this] { btnNLAssoc_Click(); });
    AddHelpText(frame, "Label14", HelpText, {60, 5220, 7455, 855});
}

void FileAssociationPanel::AddDoubleClick(ucFrame& frame) {
    QGroupBox* const group = AddGroup(frame, "Frame1", "Double-Click", {60, 60, 1395, 1455});
    for (std::size_t index = 0; index < DoubleClicks.size(); ++index) {
        const Line& line = DoubleClicks[index];
        QRadioButton* const option = AddOption(*group, Indexed("optNLAssocDblClk", static_cast<int>(index)),
                                               line.Caption, PlaceOf(index, line), index == 0);
        QObject::connect(option, &QRadioButton::toggled, option, [this, index](bool selected) {
            if (selected)
                optNLAssocDblClk_Click(index);
        });
        optNLAssocDblClk[index] = option;
    }
}

void FileAssociationPanel::AddRightClick(ucFrame& frame) {
    QGroupBox* const group = AddGroup(frame, "Frame2", "Right-Click", {60, 1560, 1395, 1455});
    for (std::size_t index = 0; index < RightClicks.size(); ++index) {
        const Line& line = RightClicks[index];
        chkNLAssocRtClk[index] = AddCheckBox(*group, Indexed("chkNLAssocRtClk", static_cast<int>(index)),
                                             line.Caption, PlaceOf(index, line), true);
    }
    chkNLAssocRtClk[0]->setEnabled(false);
}

void FileAssociationPanel::AddIcon(ucFrame& frame) {
    QGroupBox* const group = AddGroup(frame, "Frame3", "Icon", {1500, 60, 2835, 2955});
    for (std::size_t index = 0; index < Icons.size(); ++index) {
        const Line& line = Icons[index];
        QRadioButton* const option = AddOption(*group, Indexed("optNLAssocIcon", static_cast<int>(index)),
                                               line.Caption, PlaceOf(index, line), index == 0);
        QObject::connect(option, &QRadioButton::toggled, option, [this, index](bool selected) {
            if (selected)
                optNLAssocIcon_Click(index);
        });
        optNLAssocIcon[index] = option;
    }
    txtNLAssoc = Placed(new QLineEdit(group), "txtNLAssoc", {420, 2220, 2295, 285});
    txtNLAssoc->setAccessibleName("Specify My Own Icon:");
    txtNLAssoc->setReadOnly(true);
    btnNLAssocBrowse = AddButton(*group, "btnNLAssocBrowse", "Browse...", {1740, 2520, 975, 315});
    imgNLAssoc = new Picture(*group, "imgNLAssoc", "Icon", {2220, 180, 540, 540}, IconSize);
    optNLAssocIcon_Click(0);
    QObject::connect(btnNLAssocBrowse, &QPushButton::clicked, btnNLAssocBrowse,
                     [this] { btnNLAssocBrowse_Click(); });
}

void FileAssociationPanel::Prepare() {
    PrepareFileAssociation(ForWindowsPrograms(sNoLimitsPath));
    btnNLAssoc->setEnabled(true);
    LoadIcons();
}

void FileAssociationPanel::LoadIcons() {
    if (!imgNLIcons[0]->Shown().isNull())
        return;
    for (std::size_t index = 0; index < imgNLIcons.size(); ++index)
        imgNLIcons[index]->Load(Artwork(QString("icon-%1").arg(index)));
    optNLAssocIcon_Click(SelectedIn(optNLAssocIcon));
}

void FileAssociationPanel::btnNLAssoc_Click() {
    const std::size_t iDoubleClick = SelectedIn(optNLAssocDblClk);
    chkNLAssocRtClk[iDoubleClick]->setChecked(true);
    SetTrackAssociation(
        {.iDoubleClick = static_cast<std::int16_t>(iDoubleClick),
         .bRide = chkNLAssocRtClk[0]->isChecked(),
         .bEdit = chkNLAssocRtClk[1]->isChecked(),
         .bTerraform = chkNLAssocRtClk[2]->isChecked(),
         .bTool = chkNLAssocRtClk[3]->isChecked(),
         .iIcon = static_cast<std::int16_t>(SelectedIn(optNLAssocIcon)),
         .sIconFile = ForWindowsPrograms(FilePath::FromUser(txtNLAssoc->text().toStdString()))});
}

void FileAssociationPanel::optNLAssocDblClk_Click(std::size_t Index) {
    // The double-click action is always in the context menu.
    for (std::size_t index = 0; index < optNLAssocDblClk.size(); ++index)
        chkNLAssocRtClk[index]->setEnabled(index != Index);
}

void FileAssociationPanel::optNLAssocIcon_Click(std::size_t Index) {
    const bool isOwn = Index == imgNLIcons.size();
    imgNLAssoc->Load(isOwn ? QIcon() : imgNLIcons[Index]->Shown());
    txtNLAssoc->setEnabled(isOwn);
    btnNLAssocBrowse->setEnabled(isOwn);
}

void FileAssociationPanel::btnNLAssocBrowse_Click() {
    FileDialog dialog = {.sFilter = "Icon Files (*.ico)|*.ico",
                         .sDialogTitle = "Select Icon...",
                         .sDefaultExt = "ico",
                         .iOwner = frmMain::Instance().Handle()};
    if (!ShowOpenFileDialog(dialog))
        return;
    const QString file = QString::fromStdString(dialog.sFileName);
    txtNLAssoc->setText(file);
    imgNLAssoc->Load(QIcon(file));
}

} // namespace railwright
