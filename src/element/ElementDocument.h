#pragma once

#include "base/Types.h"
#include "platform/List.h"

#include <cstdint>

namespace railwright {

struct ElementNode {
    /// The point that the curve passes through.
    Vector3 Position;
    /// Control point on the side of the next node; the last node's is not stored.
    Vector3 ControlOut;
    /// Control point on the side of the previous node; node 0's is not stored.
    Vector3 ControlIn;
    float Roll = 0;
    Flag FlagA = false;
    Flag FlagB = false;
};

/// An element in memory: a chain of cubic Bezier spans that starts at the origin. A new one is empty.
struct ElementDocument {
    /// As read; saving stores it unchanged.
    std::int32_t ChunkSize = 0;
    std::int32_t SubChunks = 0;
    /// Number of spans, at least 0.
    std::int32_t NodeCount = 0;
    /// NodeCount + 1 nodes. Of node 0 a file holds only ControlOut.
    List<ElementNode> Nodes = List<ElementNode>(1);
};

/// The element in hand. There is one in the process; every tool reads and changes it directly.
extern ElementDocument Element;

/// Makes Element empty: no span, and one zeroed node.
void ClearElementDocument();

} // namespace railwright
