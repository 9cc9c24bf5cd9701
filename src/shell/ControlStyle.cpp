#include "shell/ControlStyle.h"

#include "shell/Controls.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace railwright {
namespace {

/// Reduces the letter spacing just enough to save `excess` pixels, within a limit.
void MoveCloser(QPainter& painter, const QString& text, double excess) {
    const double most = painter.fontInfo().pixelSize() / 12.0; // any more, and letters would touch
    const double steps = 64;                                   // of the toolkit, in a pixel
    const double needed = std::ceil(excess / static_cast<double>(text.size()) * steps) / steps;
    QFont font = painter.font();
    font.setLetterSpacing(QFont::AbsoluteSpacing, -std::min(needed, most));
    painter.setFont(font);
}

} // namespace

void ControlStyle::polish(QApplication* application) {
    QProxyStyle::polish(application);
    QApplication::setFont(ControlFont());
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    constexpr int lineHeight = 13;
    constexpr int gap = 4;
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return std::min(usual, lineHeight);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return std::min(usual, gap);
    default:
        return usual;
    }
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || group == nullptr)
        return QProxyStyle::subControlRect(control, option, part, widget);
    constexpr int indent = 9;
    const QRect title(QPoint(indent, 0), group->fontMetrics.size(Qt::TextHideMnemonic, group->text));
    switch (part) {
    case SC_GroupBoxLabel:
        return title;
    case SC_GroupBoxFrame:
        return group->rect.adjusted(0, title.height() / 2, 0, 0);
    default:
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || group == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    constexpr int gap = 3;
    const QRect title = subControlRect(control, option, SC_GroupBoxLabel, widget);
    constexpr double halfPixel = 0.5;
    constexpr double corner = 2;
    const QRectF frame(subControlRect(control, option, SC_GroupBoxFrame, widget));
    painter->save();
    painter->setClipRegion(QRegion(group->rect).subtracted(title.adjusted(-gap, 0, gap, 0)));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(group->palette.color(QPalette::Mid));
    painter->drawRoundedRect(frame.adjusted(halfPixel, halfPixel, -halfPixel, -halfPixel), corner, corner);
    painter->restore();
    drawItemText(painter, title, Qt::AlignLeft | Qt::TextHideMnemonic, group->palette,
                 (group->state & State_Enabled) != 0, group->text, QPalette::WindowText);
}

void ControlStyle::drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette,
                                bool enabled, const QString& text, QPalette::ColorRole role) const {
    const QFont font = painter->font();
    constexpr double seen = 0.5;
    const double excess = QFontMetricsF(font).size(flags, text).width() - place.width();
    if (excess > seen && (flags & Qt::TextWordWrap) == 0)
        MoveCloser(*painter, text, excess);
    QProxyStyle::drawItemText(painter, place, flags, palette, enabled, text, role);
    painter->setFont(font);
}

} // namespace railwright
