#pragma once

#include <QProxyStyle>

namespace railwright {

/// The user's style, fitted to this window's text: marks of check boxes and options are as high as a line,
/// the title of a group stands in its frame, and a text that is a little too wide for its place moves closer.
class ControlStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    /// Sets the typeface of everything that has none of its own: menus, message boxes, tooltips.
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
