#pragma once

#include "shell/Controls.h"

namespace railwright {

/// A scroll bar for an angle from -360 to 360 whole degrees, with 0 in the middle.
class AngleBar final : public ScrollBar {
public:
    AngleBar(QWidget& container, const QString& name, const QString& purpose, const Place& place);

    float Degrees() const { return static_cast<float>(value() - Middle); }
    /// Returns the angle as text, such as "90 degrees."
    QString Caption() const { return QString("%1 degrees.").arg(value() - Middle); }

private:
    static constexpr int Middle = 360;
};

} // namespace railwright
