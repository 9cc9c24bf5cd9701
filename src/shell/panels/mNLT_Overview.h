#pragma once

#include "shell/ToolPanel.h"

#include <optional>
#include <string>

class QPlainTextEdit;

namespace railwright {

class ucFrame;

/// Shows the report of the open track.
class OverviewPanel final : public ToolPanel {
public:
    explicit OverviewPanel(ucFrame& panel);

    void Prepare() override;
    /// Builds the report. The box receives it only when it is visible, because the layout of a long text
    /// takes a while.
    void Refresh(const TrackMeasures& measures) override;

private:
    void MakeBox();

    ucFrame& frame;
    /// Created when first visible, because finding its fonts takes a while.
    QPlainTextEdit* txtOverview = nullptr;
    /// The report not yet in the box, as UTF-8 with CR LF line ends.
    std::optional<std::string> pending;
};

} // namespace railwright
