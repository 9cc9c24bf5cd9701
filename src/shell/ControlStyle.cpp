#include "shell/ControlStyle.h"

#include <algorithm>

#include <QPainter>
#include <QStyleOption>

namespace railwright {

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

} // namespace railwright
