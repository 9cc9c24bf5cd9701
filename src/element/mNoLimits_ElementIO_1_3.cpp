#include "element/mNoLimits_ElementIO_1_3.h"

#include "base/FileName.h"
#include "format/DocumentFile.h"
#include "format/SizeCounter.h"

namespace railwright {

ElementDocument Element;

void ClearElementDocument() {
    Element = {};
}

namespace {

/// One record of the file: a node, and the outgoing control point of the previous node.
template <class Direction, class Node>
void SpanValues(Direction& v, Node& before, Node& node) {
    v.Vector(before.ControlOut);
    v.Vector(node.ControlIn);
    v.Vector(node.Position);
    v.Single(node.Roll);
    v.Flag8(node.FlagA);
    v.Flag8(node.FlagB);
    v.Zeros(8);
}

/// The layout of the file between its tag and its closing bytes, for reading, writing and sizing.
template <class Direction, RecordOf<ElementDocument> Document>
void Fields(Direction& d, Document& element) {
    d.Group([&](auto& v) {
        v.Long(element.ChunkSize);
        v.Zeros(64);
    });
    d.Count("NodeCount", element.NodeCount);
    d.MakeRoom(element.NodeCount, element.Nodes, [](auto& v) {
        const ElementNode node;
        SpanValues(v, node, node);
    });
    for (std::size_t i = 1; i <= static_cast<std::size_t>(element.NodeCount); ++i)
        d.Group([&](auto& v) { SpanValues(v, element.Nodes[i - 1], element.Nodes[i]); });
}

/// The last bytes of the file. Written but never read.
template <class Direction>
void Closing(Direction& d) {
    d.Group([](auto& v) {
        v.Zeros(64);
        v.Long(0);
    });
}

void ReadELEM(ChunkReader& reader) {
    Fields(reader, Element);
}

void WriteELEM(ChunkWriter& writer) {
    writer.Tag("ELEM");
    Fields(writer, Element);
    Closing(writer);
}

std::int64_t SizeOfELEM() {
    SizeCounter counter;
    Fields(counter, Element);
    Closing(counter);
    return FileSize::Tag + counter.Bytes();
}

constexpr DocumentFormat ElementFormat = {ElementExtension, "ELEM", ClearElementDocument, ReadELEM};

} // namespace

FileResult LoadElementFile(const FilePath& sFile) {
    return LoadDocumentFile(sFile, ElementFormat);
}

FileResult ReadElementFile(const FilePath& sFile, UnknownChunks& unknown) {
    return ReadDocumentFile(sFile, ElementFormat, unknown);
}

FileResult SaveElementFile(const FilePath& sFile) {
    return SaveDocumentFile(sFile, ElementFormat, SizeOfELEM(), WriteELEM);
}

} // namespace railwright
