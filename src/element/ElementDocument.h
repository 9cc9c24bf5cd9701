#pragma once

#include "base/Types.h"
#include "platform/List.h"

#include <cstdint>

namespace railwright {

struct ElementNode {
    /// The point on the curve.
    Vector3 Position;
    /// The control point towards the next node. The last node's is not stored.
    Vector3 ControlOut;
    /// The control point towards the previous node. Node 0's is not stored.
    Vector3 ControlIn;
    float Roll = 0;
    Flag FlagA = false;
    Flag FlagB = false;
};

/// An element in memory: a chain of cubic Bezier spans from the origin. A new one is empty.
struct ElementDocument {
    /// Read from the file, and saved unchanged.
    std::int32_t ChunkSize = 0;
    std::int32_t SubChunks = 0;
    /// The number of spans, at least 0.
    std::int32_t NodeCount = 0;
    /// NodeCount + 1 nodes. For node 0, a file contains only ControlOut.
    List<ElementNode> Nodes = List<ElementNode>(1);
};

/// The open element, the only one in the process. Every tool reads and changes it directly.
extern ElementDocument Element;

/// Makes Element empty: no spans, and one zeroed node.
void ClearElementDocument();

} // namespace railwright
