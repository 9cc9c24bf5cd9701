#include "tests/support/RandomDocuments.h"

#include <bit>
#include <cstring>
#include <random>
#include <type_traits>

namespace railwright::testing {
namespace {

/// Calls a visitor for every field that a file of the document keeps, the counts of lists first.
template <class Visitor>
void VisitTrack(TrackDocument& track, Visitor& v) {
    auto& header = track.TrackHeader;
    v(header.TrackType, header.CarsPerTrain, header.TrackColor);
    v.List(header.NumTrains, header.Trains, [&](TrainRecord& r) { v(r.Flag, r.Color, r.Name); });
    v(track.TrackInfo.AuthorComments, track.SegmentList.ClosedCircuit);
    v.List(track.BezierCurve.NodeCount, track.BezierCurve.Nodes, [&](BezierNode& r) {
        v(r.Position, r.ControlIn, r.ControlOut, r.Roll, r.FlagA, r.FlagB, r.FlagC);
    });
    v.List(track.SegmentList.SegmentCount, track.SegmentList.Segments, [&](TrackSegment& r) {
        v.Small(r.SegmentType, -1, 6);
        v(r.Color, r.CustomColors, r.Tunnel);
        if (r.SegmentType == 1) {
            v(r.StationFlag1, r.StationFlag2, r.StationFlag3, r.StationByte0, r.StationByte1, r.StationByte2);
            v(r.StationValue0, r.StationValue1, r.StationValue2, r.StationValue3, r.StationValue4,
              r.StationValue5, r.StationValue6, r.StationValue7, r.StationValue8, r.StationValue9,
              r.StationValue10);
        } else if (r.SegmentType == 2) {
            v(r.LiftValue0, r.LiftValue1, r.LiftValue2, r.LiftByte, r.LiftFlag1, r.LiftFlag2);
        } else if (r.SegmentType == 3) {
            v(r.TransportByte, r.TransportFlag1, r.TransportFlag2);
            v(r.TransportValue0, r.TransportValue1, r.TransportValue2);
        } else if (r.SegmentType == 4) {
            v(r.BrakeValue0, r.BrakeValue1, r.BrakeValue2, r.BrakeValue3, r.BrakeValue4, r.BrakeValue5,
              r.BrakeValue6);
            v(r.BrakeFlag1, r.BrakeFlag2, r.BrakeFlag3, r.BrakeFlag4, r.BrakeFlag5);
        }
    });
    v.List(track.FundamentalNodes.Count, track.FundamentalNodes.Items,
           [&](FundamentalNode& r) { v(r.Position, r.Flag1, r.Value1, r.Flag2, r.Value2); });
    auto& preFab = track.PreFabSupports;
    v.List(preFab.NodeCount, preFab.Nodes, [&](PreFabNode& node) {
        v.Small(node.SupportCount, 0, 3);
        v.Parts(node, preFab.Supports);
        for (std::size_t i = 0; i < static_cast<std::size_t>(node.SupportCount); ++i)
            v(preFab.Supports[node.First + i].SupportType, preFab.Supports[node.First + i].Value);
    });
    v.List(track.FreeNodes.Count, track.FreeNodes.Items, [&](FreeNode& r) { v(r.Position); });
    v.List(track.SupportBeams.Count, track.SupportBeams.Items,
           [&](SupportBeam& r) { v(r.EndA, r.EndB, r.BeamType, r.Value1, r.Value2); });
    v.List(track.WoodCatwalks.Count, track.WoodCatwalks.Items, [&](WoodCatwalk& r) {
        v(r.Value);
        v.Small(r.ExtraBytes, 0, 9);
    });
    v.List(track.Scenery.TreeCount, track.Scenery.Trees,
           [&](Tree& r) { v(r.Position, r.Value, r.TreeType); });
    v.List(track.SceneryObjects.Count, track.SceneryObjects.Items, [&](SceneryObject& r) {
        v(r.FileName, r.Text2, r.VectorA, r.VectorB, r.VectorC, r.VectorD, r.VectorE);
    });
    auto& terrain = track.Terrain;
    v(terrain.HasTerrain);
    if (terrain.HasTerrain) {
        v.Small(terrain.GridSizeX, 0, 4);
        v.Small(terrain.GridSizeZ, 0, 4);
        v(terrain.Value1, terrain.Value2, terrain.Value3, terrain.Value4, terrain.Value5);
        v(terrain.Text1, terrain.Text2, terrain.Text3, terrain.Byte1, terrain.Flag1);
        terrain.Heights.resize(static_cast<std::size_t>(terrain.GridSizeX * terrain.GridSizeZ));
        for (float& height : terrain.Heights)
            v(height);
    }
    v(track.Environment.PreferredEnvironment, track.Environment.Text2);
}

template <class Visitor>
void VisitElement(ElementDocument& element, Visitor& v) {
    v(element.ChunkSize);
    v.Small(element.NodeCount, 0, 5);
    element.Nodes.resize(static_cast<std::size_t>(element.NodeCount) + 1);
    for (std::size_t i = 1; i < element.Nodes.size(); ++i) {
        ElementNode& r = element.Nodes[i];
        v(element.Nodes[i - 1].ControlOut, r.ControlIn, r.Position, r.Roll, r.FlagA, r.FlagB);
    }
}

/// Hands single values to Derived::Value.
template <class Derived>
class FieldVisitor {
public:
    template <class... Fields>
    void operator()(Fields&... fields) {
        (Visit(fields), ...);
    }

private:
    template <class T>
    void Visit(T& value) {
        if constexpr (requires { value.X; })
            (*this)(value.X, value.Y, value.Z);
        else if constexpr (requires { value.fill({}); })
            for (auto& one : value)
                Visit(one);
        else
            static_cast<Derived&>(*this).Value(value);
    }
};

class RandomValues : public FieldVisitor<RandomValues> {
public:
    explicit RandomValues(unsigned seed) : random(seed) {}

    void Small(std::int32_t& value, int lowest, int highest) {
        value = lowest + static_cast<int>(random() % static_cast<unsigned>(highest - lowest + 1));
    }
    template <class Item, class Each>
    void List(std::int32_t& count, std::vector<Item>& items, Each&& each) {
        Small(count, 0, 12);
        items.resize(static_cast<std::size_t>(count) + random() % 3);
        for (Item& item : items)
            each(item);
    }
    void Parts(PreFabNode& node, std::vector<PreFabSupport>& supports) {
        node.First = supports.size();
        supports.resize(node.First + static_cast<std::size_t>(node.SupportCount));
    }
    void Value(std::int32_t& value) { value = static_cast<std::int32_t>(random()); }
    void Value(ColorValue& value) { value = static_cast<ColorValue>(random() & 0xFFFFFF); }
    void Value(std::uint8_t& value) { value = static_cast<std::uint8_t>(random()); }
    void Value(Flag& value) { value = random() % 2 == 1; }
    void Value(float& value) {
        constexpr std::uint32_t oddities[] = {0x7F800001, 0xFFC12345, 0x7F800000, 0x80000000, 1};
        const std::uint32_t choice = static_cast<std::uint32_t>(random()) % 20;
        value = std::bit_cast<float>(choice < 5 ? oddities[choice] : static_cast<std::uint32_t>(random()));
    }
    void Value(text& value) {
        const auto first = random();
        const std::size_t length = random() % 4 == 0 ? 256 : random() % 8;
        value.clear();
        for (std::size_t i = 0; i < length; ++i)
            value += static_cast<char>(first + i); // a text of 256 has every byte
    }

private:
    std::mt19937 random;
};

class CollectedValues : public FieldVisitor<CollectedValues> {
public:
    std::string All;

    void Small(std::int32_t& value, int, int) { Value(value); }
    template <class Item, class Each>
    void List(std::int32_t& count, std::vector<Item>& items, Each&& each) {
        Value(count);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            each(items.at(i));
    }
    void Parts(const PreFabNode&, const std::vector<PreFabSupport>&) {}
    template <class T>
    void Value(const T& value) {
        if constexpr (std::is_same_v<T, text>) {
            Value(value.size());
            All += value;
        } else {
            All.append(reinterpret_cast<const char*>(&value), sizeof value);
        }
    }
};

} // namespace

TrackDocument RandomTrack(unsigned seed) {
    TrackDocument track;
    RandomValues values(seed);
    VisitTrack(track, values);
    return track;
}

ElementDocument RandomElement(unsigned seed) {
    ElementDocument element;
    RandomValues values(seed);
    VisitElement(element, values);
    return element;
}

std::string Kept(TrackDocument track) {
    CollectedValues values;
    VisitTrack(track, values);
    return values.All;
}

std::string Kept(ElementDocument element) {
    CollectedValues values;
    VisitElement(element, values);
    return values.All;
}

} // namespace railwright::testing
