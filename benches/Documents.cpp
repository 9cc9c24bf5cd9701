#include "benches/Documents.h"

#include "element/mNoLimits_ElementIO_1_3.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <random>

namespace railwright::bench {
namespace {

/// Random numbers that are the same on every machine, and records made of them.
class Dice {
public:
    float Between(double least, double greatest) {
        return static_cast<float>(least + (greatest - least) * static_cast<double>(random()) / 0x1p32);
    }
    std::int32_t Below(std::uint32_t limit) { return static_cast<std::int32_t>(random() % limit); }
    bool Chance(std::uint32_t percent) { return random() % 100 < percent; }
    Vector3 Place() { return {Between(-200, 200), Between(0, 40), Between(-200, 200)}; }

    /// The next node of a smooth curve with spans of about 12 metres, which turns back at the world's edge.
    BezierNode Node() {
        BezierNode node;
        const bool isOutside = std::hypot(at.X, at.Z) > 180;
        heading += isOutside ? 0.5F : Between(-0.5, 0.5);
        const Vector3 along = {4 * std::cos(heading), Between(-1, 1), 4 * std::sin(heading)};
        at.X += 3 * along.X;
        at.Z += 3 * along.Z;
        at.Y = 20 + 15 * std::sin(heading);
        node.Position = at;
        node.ControlIn = {at.X - along.X, at.Y - along.Y, at.Z - along.Z};
        node.ControlOut = {at.X + along.X, at.Y + along.Y, at.Z + along.Z};
        node.Roll = Between(-3, 3);
        node.FlagA = Chance(20);
        return node;
    }

    TrackSegment Segment() {
        TrackSegment segment;
        segment.SegmentType = Chance(85) ? SegmentKind::Normal : 1 + Below(4);
        segment.CustomColors = Chance(10);
        segment.Tunnel = Chance(10);
        for (ColorValue& color : segment.Color)
            color = static_cast<ColorValue>(Below(0x1000000));
        if (segment.SegmentType == SegmentKind::Station)
            segment.StationValue4 = Between(1, 20);
        return segment;
    }

private:
    std::mt19937 random{20240229};
    Vector3 at;
    float heading = 0;
};

template <class Item, class Make>
void Fill(std::int64_t count, std::int32_t& counted, std::vector<Item>& items, Make&& make) {
    counted = static_cast<std::int32_t>(count);
    items.resize(static_cast<std::size_t>(count) + 1);
    for (std::size_t i = 0; i + 1 < items.size(); ++i)
        items[i] = make();
}

void FillTrack(std::int64_t nodes) {
    Dice dice;
    ClearTrackDocument();
    TrackDocument& t = Track;
    t.TrackInfo.AuthorComments = "Made up for the benches.";
    t.TrackHeader.CarsPerTrain = 6;
    Fill(2, t.TrackHeader.NumTrains, t.TrackHeader.Trains, [] { return TrainRecord{.Name = "Train"}; });
    Fill(nodes, t.BezierCurve.NodeCount, t.BezierCurve.Nodes, [&] { return dice.Node(); });
    Fill(nodes, t.SegmentList.SegmentCount, t.SegmentList.Segments, [&] { return dice.Segment(); });
    Fill(nodes / 2, t.FundamentalNodes.Count, t.FundamentalNodes.Items,
         [&] { return FundamentalNode{.Position = dice.Place(), .Value1 = dice.Between(0, 9)}; });
    Fill(nodes, t.PreFabSupports.NodeCount, t.PreFabSupports.Nodes, [&] {
        const PreFabNode node{dice.Chance(20) ? 2 : dice.Below(2), t.PreFabSupports.Supports.size()};
        for (std::int32_t i = 0; i < node.SupportCount; ++i)
            t.PreFabSupports.Supports.push_back({dice.Below(8), dice.Between(0, 9)});
        return node;
    });
    Fill(nodes / 2, t.FreeNodes.Count, t.FreeNodes.Items, [&] { return FreeNode{dice.Place()}; });
    Fill(nodes * 6 / 5, t.SupportBeams.Count, t.SupportBeams.Items, [&] {
        return SupportBeam{.EndA = {1, dice.Below(1000), 0}, .EndB = {2, 0, 0}, .BeamType = dice.Below(10)};
    });
    Fill(nodes / 10, t.WoodCatwalks.Count, t.WoodCatwalks.Items,
         [&] { return WoodCatwalk{.Value = {dice.Below(9)}, .ExtraBytes = 4}; });
    Fill(nodes * 2 / 5, t.Scenery.TreeCount, t.Scenery.Trees, [&] {
        return Tree{dice.Place(), dice.Between(1, 2), 1 + dice.Below(3)};
    });
    Fill(nodes / 16, t.SceneryObjects.Count, t.SceneryObjects.Items, [&] {
        SceneryObject object;
        object.FileName = "harbour_crane_" + std::to_string(dice.Below(30)) + ".3ds";
        object.VectorA = dice.Place();
        return object;
    });
}

Sample Saved(FileResult (*save)(const std::string&), std::string path) {
    FileBytes bytes;
    if (!save(path) || !ReadWholeFile(path, 0, bytes)) {
        std::cerr << path << " cannot be written\n";
        std::exit(EXIT_FAILURE);
    }
    return {std::move(path), std::move(bytes)};
}

} // namespace

Sample MakeTrack(const std::string& folder, std::int64_t nodes) {
    FillTrack(nodes);
    return Saved(SaveTrackFile, folder + "track-" + std::to_string(nodes) + ".nltrack");
}

Sample MakeTerrain(const std::string& folder, std::int64_t side) {
    FillTrack(100);
    Dice dice;
    Track.Terrain.HasTerrain = true;
    Track.Terrain.GridSizeX = Track.Terrain.GridSizeZ = static_cast<std::int32_t>(side);
    Track.Terrain.Heights.resize(static_cast<std::size_t>(side * side));
    for (float& height : Track.Terrain.Heights)
        height = dice.Between(-5, 40);
    return Saved(SaveTrackFile, folder + "terrain-" + std::to_string(side) + ".nltrack");
}

Sample MakeElement(const std::string& folder, std::int64_t nodes) {
    Dice dice;
    ClearElementDocument();
    Fill(nodes, Element.NodeCount, Element.Nodes, [&] {
        const BezierNode node = dice.Node();
        return ElementNode{node.Position, node.ControlOut, node.ControlIn, node.Roll};
    });
    Element.Nodes.back() = Element.Nodes[static_cast<std::size_t>(nodes) - 1];
    return Saved(SaveElementFile, folder + "element-" + std::to_string(nodes) + ".nlelem");
}

} // namespace railwright::bench
