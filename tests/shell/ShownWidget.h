#pragma once

#include "tests/shell/ShownBox.h"

#include <QWidget>

namespace railwright::testing {

/// A modal widget of Qt.
class ShownWidget final : public ShownBox {
public:
    explicit ShownWidget(QWidget& modal) : widget(modal) {}
    /// Returns the one in front, or null.
    static std::unique_ptr<ShownBox> InFront();
    int CountLook() override;
    QString Seen() const override;
    void Press(const QString& button) override;
    void Name(const QString& name, QString* before) override;
    void GiveUp() override;

private:
    QWidget& widget;
};

} // namespace railwright::testing
