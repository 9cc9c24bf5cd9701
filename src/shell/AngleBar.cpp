#include "shell/AngleBar.h"

namespace railwright {

AngleBar::AngleBar(QWidget& container, const QString& name, const QString& purpose, const Place& place)
    : ScrollBar(container, name, purpose, place, {0, 2 * Middle, 5, 1, Middle}) {}

} // namespace railwright
