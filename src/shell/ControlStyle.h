#pragma once

#include <QProxyStyle>

namespace railwright {

/// Adapts the user's style to the text of this window. Check box and option marks are as high as a line.
/// Group titles are drawn inside the frame. Letters of a text that is slightly too wide move closer.
class ControlStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    /// Sets the typeface of everything without its own, such as menus, message boxes and tooltips.
    void polish(QApplication* application) override;
    using QProxyStyle::polish;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override;
};

} // namespace railwright
