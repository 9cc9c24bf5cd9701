#pragma once

#include "tests/shell/ShownBox.h"

#include <QWidget>

namespace railwright::testing {

/// A modal widget of the toolkit's.
class ShownWidget final : public ShownBox {
public:
    explicit ShownWidget(QWidget& modal) : widget(modal) {}
    /// The one in front, null if there is none.
    static std::unique_ptr<ShownBox> InFront();
    int CountLook() override;
    QString Seen() const override;
    void Press(const QString& button) override;
    QString Name(const QString& name) override;
    void GiveUp() override;

private:
    QWidget& widget;
};

} // namespace railwright::testing
