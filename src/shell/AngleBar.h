#pragma once

#include "shell/Controls.h"

namespace railwright {

/// A scroll bar for an angle of whole degrees, from -360 to 360 with 0 in the middle.
class AngleBar final : public ScrollBar {
public:
    AngleBar(QWidget& container, const QString& name, const QString& purpose, const Place& place);

    float Degrees() const { return static_cast<float>(value() - Middle); }
    /// @return the angle in words.
    QString Caption() const { return QString("%1 degrees.").arg(value() - Middle); }

private:
    static constexpr int Middle = 360;
};

} // namespace railwright
