#pragma once

#include "shell/ToolPanel.h"

#include <QString>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace railwright {

class ucFrame;

/// Renames the 3D objects of the open track.
class RenamerPanel final : public ToolPanel {
public:
    explicit RenamerPanel(ucFrame& frame);

    void Refresh(const TrackMeasures& measures) override;

private:
    class ObjectList;

    /// Lists the objects of the track and selects the first.
    void Refresh3DSRenamer();
    void cmbTDSRenamer_Click();
    void btnTDSRenamer_Click();
    /// Returns the name of the selected object; null if there is none.
    QString ChosenName() const;

    QComboBox* cmbTDSRenamer;
    ObjectList* objects;
    QLabel* lblTDSRenamer;
    QLineEdit* txtTDSRenamer;
    QCheckBox* chkTDSRenamer;
    QPushButton* btnTDSRenamer;
};

} // namespace railwright
