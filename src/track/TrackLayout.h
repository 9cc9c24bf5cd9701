#pragma once

#include "format/ChunkReader.h"
#include "format/SizeCounter.h"
#include "format/Values.h"
#include "track/TrackDocument.h"

namespace railwright {

/// The layout of a track file. Each record's fields are listed here once, in file order, for reading, writing
/// and counting. `Values` lays out a record of fixed size, `Fields` a record whose size varies. The Fields of
/// a chunk are those between its size and its number of sub-chunks.

template <class Direction, RecordOf<FileHeaderRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Group([&](auto& v) {
        v.Version(r.Version);
        v.Zeros(16);
    });
}

template <class Direction, RecordOf<TrainRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Group([&](auto& v) {
        v.Flag8(r.Flag);
        v.Zeros(7);
    });
    d.StringIfAny("Name", r.Name);
    d.Group([&](auto& v) {
        for (auto& color : r.Color)
            v.Color(color);
    });
}

template <class Direction, RecordOf<TrackHeaderRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Group([&](auto& v) { v.Long(r.TrackType); });
    d.Count("NumTrains", r.NumTrains);
    d.Group([&](auto& v) { v.Long(r.CarsPerTrain); });
    d.Items(r.NumTrains, r.Trains);
    d.Group([&](auto& v) {
        for (auto& color : r.TrackColor)
            v.Color(color);
        v.Zeros(16);
    });
}

template <class Direction, RecordOf<TrackInfoRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Group([](auto& v) { v.Zeros(16); });
    d.StringIfAny("AuthorComments", r.AuthorComments);
}

template <class Direction, RecordOf<BezierNode> Record>
void Values(Direction& v, Record& r) {
    v.Vector(r.Position);
    v.Vector(r.ControlIn);
    v.Vector(r.ControlOut);
    v.Single(r.Roll);
    v.Flag8(r.FlagA);
    v.Flag8(r.FlagC);
    v.Flag8(r.FlagB);
    v.Zeros(17);
}

/// The unused bytes before and after every list of records.
template <class Direction, class Body>
void ListFrame(Direction& d, Body&& body) {
    d.Group([](auto& v) { v.Zeros(16); });
    body();
    d.Group([](auto& v) { v.Zeros(16); });
}

template <class Direction, class Count, class List>
void FixedList(Direction& d, const char* name, Count& count, List& items) {
    ListFrame(d, [&] {
        d.Count(name, count);
        d.FixedItems(count, items);
    });
}

template <class Direction, class Count, class List>
void VaryingList(Direction& d, const char* name, Count& count, List& items) {
    ListFrame(d, [&] {
        d.Count(name, count);
        d.Items(count, items);
    });
}

template <class Direction, RecordOf<BezierCurveRecord> Record>
void Fields(Direction& d, Record& r) {
    FixedList(d, "NodeCount", r.NodeCount, r.Nodes);
}

template <class Direction, RecordOf<TrackSegment> Record>
void Fields(Direction& d, Record& r) {
    d.Group([&](auto& v) {
        v.Long(r.SegmentType);
        v.Flag8(r.CustomColors);
        for (auto& color : r.Color)
            v.Color(color);
        v.Flag8(r.Tunnel);
        v.Zeros(15);
    });
    switch (r.SegmentType) {
    case SegmentKind::Normal:
        d.Block([](auto&) {});
        break;
    case SegmentKind::Station:
        d.Block([&](auto& v) {
            v.Single(r.StationValue0);
            v.Single(r.StationValue1);
            v.Single(r.StationValue2);
            v.Single(r.StationValue3);
            v.Byte(r.StationByte0);
            v.Byte(r.StationByte1);
            v.Flag8(r.StationFlag1);
            v.Byte(r.StationByte2);
            v.Single(r.StationValue4);
            v.Zeros(4);
            v.Flag8(r.StationFlag3);
            v.Single(r.StationValue8);
            v.Zeros(4);
            v.Single(r.StationValue9);
            v.Single(r.StationValue10);
            v.Zeros(4);
            v.Flag8(r.StationFlag2);
            v.Single(r.StationValue5);
            v.Single(r.StationValue6);
            v.Single(r.StationValue7);
            v.Zeros(64);
        });
        break;
    case SegmentKind::Lift:
        d.Block([&](auto& v) {
            v.Zeros(3);
            v.Byte(r.LiftByte);
            v.Single(r.LiftValue0);
            v.Single(r.LiftValue1);
            v.Single(r.LiftValue2);
            v.Zeros(4);
            v.Flag8(r.LiftFlag1);
            v.Flag8(r.LiftFlag2);
            v.Zeros(14);
        });
        break;
    case SegmentKind::Transport:
        d.Block([&](auto& v) {
            v.Single(r.TransportValue0);
            v.Single(r.TransportValue1);
            v.Single(r.TransportValue2);
            v.Zeros(3);
            v.Byte(r.TransportByte);
            v.Flag8(r.TransportFlag1);
            v.Flag8(r.TransportFlag2);
            v.Zeros(10);
        });
        break;
    case SegmentKind::Brake:
        d.Block([&](auto& v) {
            v.Single(r.BrakeValue0);
            v.Single(r.BrakeValue1);
            v.Single(r.BrakeValue2);
            v.Zeros(4);
            v.Single(r.BrakeValue6);
            v.Flag8(r.BrakeFlag1);
            v.Flag8(r.BrakeFlag3);
            v.Single(r.BrakeValue3);
            v.Single(r.BrakeValue4);
            v.Single(r.BrakeValue5);
            v.Flag8(r.BrakeFlag4);
            v.Flag8(r.BrakeFlag5);
            v.Flag8(r.BrakeFlag2);
            v.Zeros(13);
        });
        break;
    default:
        break;
    }
}

/// The smallest segment is of a kind without parameters.
template <>
inline TrackSegment SmallestItem<TrackSegment>() {
    TrackSegment segment;
    segment.SegmentType = -1;
    return segment;
}

template <class Direction, RecordOf<SegmentListRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Count("SegmentCount", r.SegmentCount);
    d.Group([&](auto& v) {
        v.Flag8(r.ClosedCircuit);
        v.Zeros(16);
    });
    d.Items(r.SegmentCount, r.Segments);
    d.Group([](auto& v) { v.Zeros(16); });
}

template <class Direction, RecordOf<SupportHeaderRecord> Record>
void Fields(Direction& d, Record&) {
    d.Group([](auto& v) { v.Zeros(32); });
}

template <class Direction, RecordOf<FundamentalNode> Record>
void Values(Direction& v, Record& r) {
    v.Flag8(r.Flag1);
    v.Single(r.Value1);
    v.Flag8(r.Flag2);
    v.Single(r.Value2);
    v.Zeros(6);
    v.Vector(r.Position);
    v.Zeros(64);
}

template <class Direction, RecordOf<FundamentalNodesRecord> Record>
void Fields(Direction& d, Record& r) {
    FixedList(d, "Count", r.Count, r.Items);
}

template <class Direction, RecordOf<PreFabSupport> Record>
void Values(Direction& v, Record& r) {
    v.Long(r.SupportType);
    v.Single(r.Value);
    v.Zeros(16);
}

template <class Direction, RecordOf<PreFabSupportsRecord> Record>
void Fields(Direction& d, Record& r) {
    ListFrame(d, [&] {
        d.Count("NodeCount", r.NodeCount);
        d.Nested(r.NodeCount, r.Nodes, r.Supports);
    });
}

template <class Direction, RecordOf<FreeNode> Record>
void Values(Direction& v, Record& r) {
    v.Vector(r.Position);
    v.Zeros(16);
}

template <class Direction, RecordOf<FreeNodesRecord> Record>
void Fields(Direction& d, Record& r) {
    FixedList(d, "Count", r.Count, r.Items);
}

template <class Direction, RecordOf<SupportBeam> Record>
void Values(Direction& v, Record& r) {
    for (auto* const end : {&r.EndA, &r.EndB}) {
        v.Long((*end)[0]);
        v.Long((*end)[2]);
        v.Long((*end)[1]);
        v.Zeros(4);
    }
    v.Long(r.BeamType);
    v.Long(r.Value1);
    v.Single(r.Value2);
    v.Zeros(4);
}

template <class Direction, RecordOf<SupportBeamsRecord> Record>
void Fields(Direction& d, Record& r) {
    FixedList(d, "Count", r.Count, r.Items);
}

template <class Direction, RecordOf<WoodCatwalk> Record>
void Fields(Direction& d, Record& r) {
    d.Group([&](auto& v) {
        for (auto& value : r.Value)
            v.Long(value);
        v.Long(r.ExtraBytes);
    });
    d.PassOver("ExtraBytes", r.ExtraBytes);
}

template <class Direction, RecordOf<WoodCatwalksRecord> Record>
void Fields(Direction& d, Record& r) {
    VaryingList(d, "Count", r.Count, r.Items);
}

template <class Direction, RecordOf<Tree> Record>
void Values(Direction& v, Record& r) {
    v.Vector(r.Position);
    v.Long(r.TreeType);
    v.Single(r.Value);
    v.Zeros(44);
}

template <class Direction, RecordOf<SceneryRecord> Record>
void Fields(Direction& d, Record& r) {
    FixedList(d, "TreeCount", r.TreeCount, r.Trees);
}

template <class Direction, RecordOf<SceneryObject> Record>
void Fields(Direction& d, Record& r) {
    d.String("Text2", r.Text2);
    d.String("FileName", r.FileName);
    d.Group([&](auto& v) {
        v.Vector(r.VectorA);
        v.Single(r.VectorD.X);
        v.Vector(r.VectorB);
        v.Single(r.VectorD.Y);
        v.Vector(r.VectorC);
        v.Single(r.VectorD.Z);
        v.Vector(r.VectorE);
        v.Zeros(20);
    });
}

template <class Direction, RecordOf<SceneryObjectsRecord> Record>
void Fields(Direction& d, Record& r) {
    VaryingList(d, "Count", r.Count, r.Items);
}

template <class Direction, RecordOf<TerrainRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Count("GridSizeX", r.GridSizeX);
    d.Count("GridSizeZ", r.GridSizeZ);
    d.Group([&](auto& v) {
        v.Single(r.Value1);
        v.Single(r.Value2);
    });
    d.String("Text1", r.Text1);
    d.Group([&](auto& v) { v.Single(r.Value3); });
    d.String("Text2", r.Text2);
    d.Group([&](auto& v) {
        v.Single(r.Value4);
        v.Flag8(r.Flag1);
        v.Zeros(4);
    });
    d.String("Text3", r.Text3);
    d.Group([&](auto& v) {
        v.Single(r.Value5);
        v.Byte(r.Byte1);
        v.Zeros(15);
    });
    d.Grid(r.GridSizeX, r.GridSizeZ, r.Heights);
    d.Group([](auto& v) { v.Zeros(16); });
}

template <class Direction, RecordOf<EnvironmentRecord> Record>
void Fields(Direction& d, Record& r) {
    d.Group([](auto& v) { v.Zeros(16); });
    d.StringIfAny("PreferredEnvironment", r.PreferredEnvironment);
    d.StringIfAny("Text2", r.Text2);
    d.Group([](auto& v) { v.Zeros(16); });
}

/// Visits the chunks of a track in file order. Calls `visit` with the chunk's depth in the tree, its tag and
/// its record. The root has depth 0 and contains all others.
template <class Document, class Visit>
void ForEachChunk(Document& document, Visit&& visit) {
    visit(0, "NLIM", document.FileHeader);
    visit(1, "TRCK", document.TrackHeader);
    visit(2, "INFO", document.TrackInfo);
    visit(2, "BEZR", document.BezierCurve);
    visit(2, "SEGM", document.SegmentList);
    visit(2, "SUPP", document.SupportHeader);
    visit(3, "FUND", document.FundamentalNodes);
    visit(3, "RASC", document.PreFabSupports);
    visit(3, "FREN", document.FreeNodes);
    visit(3, "TUBE", document.SupportBeams);
    visit(3, "CATW", document.WoodCatwalks);
    visit(1, "SCEN", document.Scenery);
    visit(2, "SCOB", document.SceneryObjects);
    visit(1, "TERA", document.Terrain);
    visit(1, "ENVC", document.Environment);
}

} // namespace railwright
