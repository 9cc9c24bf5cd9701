#include "tools/mNLE_Rotate.h"

#include "element/ElementDocument.h"
#include "geometry/mMatrix3D.h"

#include <array>
#include <cstddef>

namespace railwright {

void RotateElement(int Axis, float Degrees) {
    constexpr std::array turns = {MatrixRotateX, MatrixRotateZ, MatrixRotateY};
    const auto axis = static_cast<std::size_t>(Axis);
    if (axis >= turns.size())
        return;
    const Matrix3D turn = turns[axis](Degrees);
    for (ElementNode& node : Element.Nodes)
        for (Vector3* const point : {&node.Position, &node.ControlIn, &node.ControlOut})
            *point = MatrixTransform(turn, *point);
}

} // namespace railwright
