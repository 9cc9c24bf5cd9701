#pragma once

#include <QProxyStyle>

namespace railwright {

/// The user's style, with marks of check boxes and options that fit the lines of this window's text.
class ControlStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace railwright
