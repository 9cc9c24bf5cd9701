#pragma once

#include "base/Types.h"
#include "platform/List.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace railwright {

/// The records of a track, one per chunk of its file.
///
/// A list is a vector and a count, which is at least 0. After reading, the vector has one extra, zeroed
/// element. It is never shorter than the count. Only the counted elements are saved. A tool that empties a
/// list sets the count to 0 and keeps the elements. Fields named Value, Text or Flag with a number are kept
/// for the simulator; their meaning is unknown.

/// The fields of every chunk. Only the writer uses them, and computes them each time.
struct ChunkRecord {
    /// Bytes of the chunk after its size field, including its sub-chunks.
    std::int32_t ChunkSize = 0;
    /// Number of chunks directly inside this one.
    std::int32_t SubChunks = 0;
};

/// Chunk NLIM.
struct FileHeaderRecord : ChunkRecord {
    /// As read. A file is always written as version 1, 3, 0, 0.
    std::array<std::uint8_t, 4> Version{};
};

struct TrainRecord {
    railwright::Flag Flag = false;
    std::array<ColorValue, 4> Color{};
    text Name;
};

/// Chunk TRCK.
struct TrackHeaderRecord : ChunkRecord {
    /// The type of coaster; see TrackTypeName.
    std::int32_t TrackType = 0;
    /// Never empty, so that a train can be added to a track without trains.
    List<TrainRecord> Trains = List<TrainRecord>(1);
    /// Count of Trains.
    std::int32_t NumTrains = 0;
    std::int32_t CarsPerTrain = 0;
    std::array<ColorValue, 8> TrackColor{};
};

/// Chunk INFO.
struct TrackInfoRecord : ChunkRecord {
    text AuthorComments;
};

struct BezierNode {
    /// The point on the curve.
    Vector3 Position;
    /// The control point towards the previous node.
    Vector3 ControlIn;
    /// The control point towards the next node.
    Vector3 ControlOut;
    float Roll = 0;
    Flag FlagA = false;
    Flag FlagB = false;
    Flag FlagC = false;
};

/// Chunk BEZR: the centre line, a chain of cubic Bezier spans from each node to the next.
struct BezierCurveRecord : ChunkRecord {
    std::int32_t NodeCount = 0;
    /// Nodes in track order.
    List<BezierNode> Nodes;
};

/// Values of TrackSegment::SegmentType. A segment with any other value has no parameters.
namespace SegmentKind {
inline constexpr std::int32_t Normal = 0;
inline constexpr std::int32_t Station = 1;
inline constexpr std::int32_t Lift = 2;
inline constexpr std::int32_t Transport = 3;
inline constexpr std::int32_t Brake = 4;
} // namespace SegmentKind

/// The span that starts at the node of the same index. Contains the parameters of all kinds. Only those of
/// its own kind are read and saved; the others are zero.
struct TrackSegment {
    std::int32_t SegmentType = SegmentKind::Normal;
    std::array<ColorValue, 3> Color{};
    Flag CustomColors = false;
    Flag Tunnel = false;

    // The single bytes of all kinds come first, to avoid padding. A segment in memory is at most four times
    // as large as in a file.
    Flag StationFlag1 = false;
    Flag StationFlag2 = false;
    Flag StationFlag3 = false;
    std::uint8_t StationByte0 = 0;
    std::uint8_t StationByte1 = 0;
    std::uint8_t StationByte2 = 0;
    std::uint8_t LiftByte = 0;
    Flag LiftFlag1 = false;
    Flag LiftFlag2 = false;
    std::uint8_t TransportByte = 0;
    Flag TransportFlag1 = false;
    Flag TransportFlag2 = false;
    Flag BrakeFlag1 = false;
    Flag BrakeFlag2 = false;
    Flag BrakeFlag3 = false;
    Flag BrakeFlag4 = false;
    Flag BrakeFlag5 = false;

    float StationValue0 = 0;
    float StationValue1 = 0;
    float StationValue2 = 0;
    float StationValue3 = 0;
    float StationValue4 = 0;
    float StationValue5 = 0;
    float StationValue6 = 0;
    float StationValue7 = 0;
    float StationValue8 = 0;
    float StationValue9 = 0;
    float StationValue10 = 0;

    float LiftValue0 = 0;
    float LiftValue1 = 0;
    float LiftValue2 = 0;

    float TransportValue0 = 0;
    float TransportValue1 = 0;
    float TransportValue2 = 0;

    float BrakeValue0 = 0;
    float BrakeValue1 = 0;
    float BrakeValue2 = 0;
    float BrakeValue3 = 0;
    float BrakeValue4 = 0;
    float BrakeValue5 = 0;
    float BrakeValue6 = 0;
};

/// Chunk SEGM.
struct SegmentListRecord : ChunkRecord {
    /// The track is a complete circuit: the last node's span leads to node 0.
    Flag ClosedCircuit = false;
    std::int32_t SegmentCount = 0;
    /// Usually one per span, but a file may contain more or fewer.
    List<TrackSegment> Segments;

    /// Returns the kind of the segment at a node; Normal if the list has none.
    std::int32_t TypeAtNode(std::int32_t node) const {
        const auto place = static_cast<std::size_t>(node);
        return place < Segments.size() ? Segments[place].SegmentType : SegmentKind::Normal;
    }
};

/// Chunk SUPP, which only groups the five chunks of the supports.
struct SupportHeaderRecord : ChunkRecord {};

struct FundamentalNode {
    Vector3 Position;
    Flag Flag1 = false;
    float Value1 = 0;
    Flag Flag2 = false;
    float Value2 = 0;
};

/// Chunk FUND: the footers of the supports.
struct FundamentalNodesRecord : ChunkRecord {
    std::int32_t Count = 0;
    List<FundamentalNode> Items;
};

struct PreFabSupport {
    std::int32_t SupportType = 0;
    float Value = 0;
};

/// The pre-fabricated supports of one track node.
struct PreFabNode {
    std::int32_t SupportCount = 0;
    /// Index of the node's first support in PreFabSupportsRecord::Supports.
    std::size_t First = 0;

    static constexpr const char* CountName = "SupportCount";
    std::int32_t& Count() { return SupportCount; }
    std::int32_t Count() const { return SupportCount; }
};

/// Chunk RASC.
struct PreFabSupportsRecord : ChunkRecord {
    std::int32_t NodeCount = 0;
    /// As read, one per track node.
    List<PreFabNode> Nodes;
    /// The supports of all nodes, grouped by node.
    List<PreFabSupport> Supports;

    /// Returns the supports of an item of Nodes.
    std::span<const PreFabSupport> SupportsOf(const PreFabNode& node) const {
        return std::span(Supports).subspan(node.First, static_cast<std::size_t>(node.SupportCount));
    }
};

struct FreeNode {
    Vector3 Position;
};

/// Chunk FREN.
struct FreeNodesRecord : ChunkRecord {
    std::int32_t Count = 0;
    List<FreeNode> Items;
};

struct SupportBeam {
    std::array<std::int32_t, 3> EndA{};
    std::array<std::int32_t, 3> EndB{};
    std::int32_t BeamType = 0;
    std::int32_t Value1 = 0;
    float Value2 = 0;
};

/// Chunk TUBE.
struct SupportBeamsRecord : ChunkRecord {
    std::int32_t Count = 0;
    List<SupportBeam> Items;
};

struct WoodCatwalk {
    std::array<std::int32_t, 6> Value{};
    /// Number of bytes after the record in the file. Their content is not kept; zeros are written.
    std::int32_t ExtraBytes = 0;
};

/// Chunk CATW.
struct WoodCatwalksRecord : ChunkRecord {
    std::int32_t Count = 0;
    List<WoodCatwalk> Items;
};

struct Tree {
    Vector3 Position;
    float Value = 0;
    std::int32_t TreeType = 0;
};

/// Chunk SCEN.
struct SceneryRecord : ChunkRecord {
    std::int32_t TreeCount = 0;
    List<Tree> Trees;
};

struct SceneryObject {
    /// File name of the 3DS model.
    text FileName;
    text Text2;
    Vector3 VectorA;
    Vector3 VectorB;
    Vector3 VectorC;
    Vector3 VectorD;
    Vector3 VectorE;
};

/// Chunk SCOB.
struct SceneryObjectsRecord : ChunkRecord {
    std::int32_t Count = 0;
    List<SceneryObject> Items;
};

/// Chunk TERA.
struct TerrainRecord : ChunkRecord {
    /// The document has terrain. Set by reading the chunk, which is saved only if this is set.
    Flag HasTerrain = false;
    std::int32_t GridSizeX = 0;
    std::int32_t GridSizeZ = 0;
    float Value1 = 0;
    float Value2 = 0;
    text Text1;
    float Value3 = 0;
    text Text2;
    float Value4 = 0;
    text Text3;
    float Value5 = 0;
    std::uint8_t Byte1 = 0;
    Flag Flag1 = false;
    /// Heights in metres in file order: GridSizeX of them for the first z, then for the next.
    List<float> Heights;

    /// @param x 0 to GridSizeX - 1. @param z 0 to GridSizeZ - 1.
    float HeightAt(std::int32_t x, std::int32_t z) const {
        return Heights[static_cast<std::size_t>(z) * static_cast<std::size_t>(GridSizeX) +
                       static_cast<std::size_t>(x)];
    }
};

/// Chunk ENVC.
struct EnvironmentRecord : ChunkRecord {
    text PreferredEnvironment;
    text Text2;
};

/// A track in memory. A new one is empty.
struct TrackDocument {
    FileHeaderRecord FileHeader;
    TrackHeaderRecord TrackHeader;
    TrackInfoRecord TrackInfo;
    BezierCurveRecord BezierCurve;
    SegmentListRecord SegmentList;
    SupportHeaderRecord SupportHeader;
    FundamentalNodesRecord FundamentalNodes;
    PreFabSupportsRecord PreFabSupports;
    FreeNodesRecord FreeNodes;
    SupportBeamsRecord SupportBeams;
    WoodCatwalksRecord WoodCatwalks;
    SceneryRecord Scenery;
    SceneryObjectsRecord SceneryObjects;
    TerrainRecord Terrain;
    EnvironmentRecord Environment;
};

/// The open track, the only one in the process. Every tool reads and changes it directly.
extern TrackDocument Track;

void ClearTrackDocument();

} // namespace railwright
