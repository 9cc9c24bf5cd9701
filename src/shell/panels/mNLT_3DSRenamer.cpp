#include "shell/panels/mNLT_3DSRenamer.h"

#include "platform/CodePage.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_3DSRenamer.h"
#include "track/TrackDocument.h"

#include <initializer_list>

#include <QAbstractListModel>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace railwright {
namespace {

constexpr const char* HelpText =
    "    3DS Renamer only renames the 3DS Object filename in the track file itself.  It does not "
    "rename the file on your hard drive.  You can rename an object to point into a subfolder of "
    "the NoLimits Object folder, however this will make the object useless to the Track Editor "
    "because the Track Editor does not look within subfolders.  If you wish to rename objects to "
    "subfolders, do so with caution.";

} // namespace

/// The numbered objects, up to a million. Creates items only when they are displayed.
class RenamerPanel::ObjectList final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void SetCount(int objects) {
        beginResetModel();
        count = objects;
        endResetModel();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::EditRole)
            return {};
        return QString("Object %1").arg(index.row() + 1, 2, 10, QLatin1Char('0'));
    }

private:
    int count = 0;
};

RenamerPanel::RenamerPanel(ucFrame& frame)
    : cmbTDSRenamer(Placed(new QComboBox(&frame), "cmbTDSRenamer", {180, 180, 2355, 345})),
      objects(new ObjectList(cmbTDSRenamer)) {
    cmbTDSRenamer->setModel(objects);
    cmbTDSRenamer->setAccessibleName("Object");
    lblTDSRenamer = AddLabel(frame, "lblTDSRenamer", "", {2700, 255, 4695, 195});
    txtTDSRenamer = Placed(new QLineEdit(&frame), "txtTDSRenamer", {180, 660, 5520, 345});
    txtTDSRenamer->setAccessibleName("New name");
    btnTDSRenamer = AddButton(frame, "btnTDSRenamer", "Rename", {5820, 645, 1575, 375});
    chkTDSRenamer =
        AddCheckBox(frame, "chkTDSRenamer", "Rename all objects of same name.", {180, 1155, 5520, 195}, true);
    AddHelpText(frame, "Label22", HelpText, {180, 1560, 7215, 4335});
    QObject::connect(cmbTDSRenamer, &QComboBox::currentIndexChanged, cmbTDSRenamer,
                     [this] { cmbTDSRenamer_Click(); });
    QObject::connect(btnTDSRenamer, &QPushButton::clicked, btnTDSRenamer, [this] { btnTDSRenamer_Click(); });
    QObject::connect(txtTDSRenamer, &QLineEdit::returnPressed, btnTDSRenamer,
                     [this] { btnTDSRenamer_Click(); });
    if (iDocumentKind == CurrentDocument::Track)
        Refresh3DSRenamer();
}

void RenamerPanel::Refresh(const TrackMeasures& /*measures*/) {
    Refresh3DSRenamer();
}

void RenamerPanel::Refresh3DSRenamer() {
    const std::int32_t count = Track.SceneryObjects.Count;
    {
        // Filling the list must not trigger a selection.
        const QSignalBlocker blocker(cmbTDSRenamer);
        objects->SetCount(count);
        cmbTDSRenamer->setCurrentIndex(count >= 1 ? 0 : -1);
    }
    for (QWidget* const control :
         std::initializer_list<QWidget*>{cmbTDSRenamer, txtTDSRenamer, chkTDSRenamer, btnTDSRenamer})
        control->setEnabled(count >= 1);
    if (count >= 1)
        cmbTDSRenamer_Click();
}

QString RenamerPanel::ChosenName() const {
    const int index = cmbTDSRenamer->currentIndex();
    if (index < 0 || index >= Track.SceneryObjects.Count)
        return {};
    const text& name = Track.SceneryObjects.Items[static_cast<std::size_t>(index)].FileName;
    return QString::fromStdString(ToUtf8(name, SystemCodePage()));
}

void RenamerPanel::cmbTDSRenamer_Click() {
    txtTDSRenamer->setText(ChosenName());
    lblTDSRenamer->setText(ChosenName());
}

void RenamerPanel::btnTDSRenamer_Click() {
    const std::string typed = txtTDSRenamer->text().toStdString();
    const text newName = FromUtf8(typed, SystemCodePage());
    if (newName.size() < ShortestObjectName || !FirstOutside(typed, SystemCodePage()).empty())
        return;
    ApplyTrackTool([&] {
        RenameSceneryObject(cmbTDSRenamer->currentIndex(), newName, chkTDSRenamer->isChecked());
        lblTDSRenamer->setText(ChosenName());
    });
}

} // namespace railwright
