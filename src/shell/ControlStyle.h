#pragma once

#include <QProxyStyle>

namespace railwright {

/// The user's style, fitted to this window's text: marks of check boxes and options are as high as a line,
/// and the title of a group stands in its frame.
class ControlStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace railwright
