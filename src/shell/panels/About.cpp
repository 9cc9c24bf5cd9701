#include "shell/panels/About.h"

#include "base/Version.h"
#include "shell/Controls.h"
#include "shell/ucFrame.h"

#include <QLabel>
#include <QPalette>

namespace railwright {
namespace {

/// Returns a palette of black on white, whatever colours the user has chosen.
QPalette Paper() {
    return {Qt::black, Qt::lightGray, Qt::white, Qt::darkGray, Qt::gray, Qt::black, Qt::white};
}

QLabel* AddLine(ucFrame& frame, const QString& name, const QString& caption, const Place& place,
                const QFont& font) {
    QLabel* const line = AddLabel(frame, name, caption, place, font);
    // Bottom-aligned, because the areas leave no room between the lines.
    line->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    line->setPalette(Paper());
    return line;
}

} // namespace

AboutPanel::AboutPanel(ucFrame& frame) {
    QLabel* const background = AddLabel(frame, "Label17", "", {60, 60, 7455, 6015});
    background->setAutoFillBackground(true);
    background->setPalette(QPalette(Qt::white));
    background->setBackgroundRole(QPalette::Base);

    auto* const picture = new Picture(frame, "Image1", "Railwright", {1620, 120, 4350, 1350}, {290, 90});
    picture->Load(Artwork("about"));

    QLabel* const name = AddLine(frame, "Label18", "Railwright", {120, 1620, 7335, 555},
                                 ControlFont(24, {.Bold = true, .Italic = true}));
    // The descenders would touch the next line.
    name->setContentsMargins(0, 0, 0, 5);
    AddLine(frame, "Label19(0)", "Version " + QString::fromUtf8(Version) + ".0", {120, 2100, 7335, 255},
            ControlFont(9.75, {.Bold = true}));
    AddLine(frame, "Label19(1)", "Copyright \u00A9 2026 the Railwright authors", {120, 2340, 7335, 315},
            ControlFont(12, {.Bold = true}));
    AddLine(frame, "Label21", "Node Smoother by the Railwright contributors", {180, 2640, 7215, 195},
            ControlFont(8.25, {.Bold = true}));
}

} // namespace railwright
