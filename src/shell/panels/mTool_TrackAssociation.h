#pragma once

#include "shell/ToolPanel.h"

#include <array>
#include <cstddef>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace railwright {

class Picture;
class ucFrame;

/// Chooses the desktop's actions and icon for track files.
class FileAssociationPanel final : public ToolPanel {
public:
    explicit FileAssociationPanel(ucFrame& frame);

    void Prepare() override;

private:
    /// Loads the icons when the panel is first shown.
    void LoadIcons();
    void AddDoubleClick(ucFrame& frame);
    void AddRightClick(ucFrame& frame);
    void AddIcon(ucFrame& frame);

    void optNLAssocDblClk_Click(std::size_t Index);
    void optNLAssocIcon_Click(std::size_t Index);
    void btnNLAssocBrowse_Click();
    void btnNLAssoc_Click();

    std::array<QRadioButton*, 3> optNLAssocDblClk{};
    std::array<QCheckBox*, 4> chkNLAssocRtClk{};
    std::array<QRadioButton*, 8> optNLAssocIcon{};
    std::array<Picture*, 7> imgNLIcons{};
    QLineEdit* txtNLAssoc;
    QPushButton* btnNLAssocBrowse;
    Picture* imgNLAssoc;
    QPushButton* btnNLAssoc;
};

} // namespace railwright
