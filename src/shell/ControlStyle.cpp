#include "shell/ControlStyle.h"

#include <algorithm>

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

} // namespace railwright
