#include "tools/mNLE_Reverse.h"

#include "base/StoredFloat.h"
#include "element/ElementDocument.h"
#include "geometry/mMatrix3D.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace railwright {
namespace {

constexpr float HalfTurn = 3.1415927F;
constexpr float QuarterTurnBack = -1.5707963267949F;

/// Returns the angle in radians for an element that ends in the direction (`x`, `z`).
float TurnFor(float x, float z) {
    if (x == 0)
        return HalfTurn;
    if (z == 0)
        return QuarterTurnBack;
    return static_cast<float>(std::atan(static_cast<double>(x) / static_cast<double>(z)));
}

} // namespace

void ReverseElement() {
    const ElementNode& last = Element.Nodes.back();
    const Vector3 end = last.Position;
    const float radians = TurnFor(end.X - last.ControlIn.X, end.Z - last.ControlIn.Z);
    const auto degrees = static_cast<float>(static_cast<double>(radians) / Pi * 180);
    const Matrix3D carry = MatrixMultiply(MatrixRotateY(degrees), MatrixTranslate(-end.X, -end.Y, -end.Z));
    for (ElementNode& node : Element.Nodes) {
        std::swap(node.ControlIn, node.ControlOut);
        for (Vector3* const point : {&node.Position, &node.ControlIn, &node.ControlOut})
            *point = MatrixTransform(carry, *point);
        node.Roll = Stored(-node.Roll);
    }
    std::reverse(Element.Nodes.begin(), Element.Nodes.end());
}

} // namespace railwright
