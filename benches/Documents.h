#pragma once

#include "base/Text.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <cmath>
#include <random>

namespace railwright::bench {

/// Fills Track and Element with random numbers from a fixed seed, the same on every machine. Supports, beams,
/// objects and kinds of segments are as frequent as in the examples.
class Dice {
public:
    void MakeTrack(std::int64_t nodes) {
        ClearTrackDocument();
        TrackDocument& t = Track;
        t.TrackInfo.AuthorComments = "Made up for the benches.";
        Fill(2, t.TrackHeader.NumTrains, t.TrackHeader.Trains, [] { return TrainRecord{.Name = "Train"}; });
        Fill(nodes, t.BezierCurve.NodeCount, t.BezierCurve.Nodes, [&] { return Node(); });
        Fill(nodes, t.SegmentList.SegmentCount, t.SegmentList.Segments, [&] {
            return TrackSegment{.SegmentType = Below(100) < 85 ? SegmentKind::Normal : 1 + Below(4),
                                .Color = {0xFF0000, 0x00FF00, static_cast<ColorValue>(Below(256))},
                                .CustomColors = Below(10) == 0,
                                .Tunnel = Below(10) == 0};
        });
        Fill(nodes / 2, t.FundamentalNodes.Count, t.FundamentalNodes.Items,
             [&] { return FundamentalNode{.Position = Place(), .Value1 = Between(0, 9)}; });
        Fill(nodes, t.PreFabSupports.NodeCount, t.PreFabSupports.Nodes, [&] {
            const PreFabNode node{(1 + Below(5)) / 2, t.PreFabSupports.Supports.size()};
            t.PreFabSupports.Supports.resize(node.First + static_cast<std::size_t>(node.SupportCount),
                                             {Below(8), Between(0, 9)});
            return node;
        });
        Fill(nodes / 2, t.FreeNodes.Count, t.FreeNodes.Items, [&] { return FreeNode{Place()}; });
        Fill(nodes * 6 / 5, t.SupportBeams.Count, t.SupportBeams.Items, [&] {
            return SupportBeam{.EndA = {1, Below(1000), 0}, .EndB = {2}, .BeamType = Below(10)};
        });
        Fill(nodes / 10, t.WoodCatwalks.Count, t.WoodCatwalks.Items,
             [&] { return WoodCatwalk{.Value = {Below(9)}, .ExtraBytes = 4}; });
        Fill(nodes * 2 / 5, t.Scenery.TreeCount, t.Scenery.Trees, [&] {
            return Tree{Place(), Between(1, 2), 1 + Below(3)};
        });
        Fill(nodes / 16, t.SceneryObjects.Count, t.SceneryObjects.Items, [&] { return Object(); });
    }

    /// A small track on a terrain of `side` x `side` heights.
    void MakeTerrain(std::int64_t side) {
        MakeTrack(100);
        TerrainRecord& terrain = Track.Terrain;
        terrain.HasTerrain = true;
        terrain.GridSizeX = terrain.GridSizeZ = static_cast<std::int32_t>(side);
        terrain.Heights.resize(static_cast<std::size_t>(side * side));
        for (float& height : terrain.Heights)
            height = Between(-5, 40);
    }

    /// A track with only nodes, all inside the previews.
    void MakeNearNodes(std::int64_t nodes) {
        ClearTrackDocument();
        Fill(nodes, Track.BezierCurve.NodeCount, Track.BezierCurve.Nodes, [&] { return Node(); });
    }

    /// The same, but the nodes are thousands of kilometres apart.
    void MakeFarNodes(std::int64_t nodes) {
        ClearTrackDocument();
        const auto place = [&] {
            return Vector3{Between(-1e6, 1e6), Between(-1e6, 1e6), Between(-1e6, 1e6)};
        };
        Fill(nodes, Track.BezierCurve.NodeCount, Track.BezierCurve.Nodes,
             [&] { return BezierNode{.Position = place(), .ControlIn = place(), .ControlOut = place()}; });
    }

    void MakeObjects(std::int64_t objects) {
        ClearTrackDocument();
        Fill(objects, Track.SceneryObjects.Count, Track.SceneryObjects.Items, [&] { return Object(); });
    }

    void MakeComments(std::int64_t lines) {
        ClearTrackDocument();
        for (std::int64_t line = 0; line < lines; ++line)
            Track.TrackInfo.AuthorComments +=
                TextOf("This is line " + std::to_string(line) + " of the comments.\r\n");
    }

    void MakeElement(std::int64_t nodes) {
        ClearElementDocument();
        Fill(nodes, Element.NodeCount, Element.Nodes, [&] {
            const BezierNode node = Node();
            return ElementNode{node.Position, node.ControlOut, node.ControlIn, node.Roll};
        });
        Element.Nodes.back() = Element.Nodes[static_cast<std::size_t>(nodes) - 1];
    }

private:
    std::int32_t Below(std::uint32_t limit) { return static_cast<std::int32_t>(random() % limit); }
    float Between(double least, double greatest) {
        return static_cast<float>(least + (greatest - least) * static_cast<double>(random()) / 0x1p32);
    }
    Vector3 Place() { return {Between(-200, 200), Between(0, 40), Between(-200, 200)}; }

    /// Returns the next node of a smooth curve, which has spans of about 12 metres and turns back at the edge
    /// of the world.
    BezierNode Node() {
        heading += std::hypot(at.X, at.Z) > 180 ? 0.5F : Between(-0.5, 0.5);
        const Vector3 along = {4 * std::cos(heading), Between(-1, 1), 4 * std::sin(heading)};
        at = {at.X + 3 * along.X, 20 + 15 * std::sin(heading), at.Z + 3 * along.Z};
        return {.Position = at,
                .ControlIn = {at.X - along.X, at.Y - along.Y, at.Z - along.Z},
                .ControlOut = {at.X + along.X, at.Y + along.Y, at.Z + along.Z},
                .Roll = Between(-3, 3)};
    }

    SceneryObject Object() {
        SceneryObject object;
        object.FileName = TextOf("harbour_crane_" + std::to_string(Below(30)) + ".3ds");
        object.VectorA = Place();
        return object;
    }

    template <class Item, class Make>
    static void Fill(std::int64_t count, std::int32_t& counted, List<Item>& items, Make&& make) {
        counted = static_cast<std::int32_t>(count);
        items.resize(static_cast<std::size_t>(count) + 1);
        for (std::size_t i = 0; i + 1 < items.size(); ++i)
            items[i] = make();
    }

    std::mt19937 random{20240229};
    Vector3 at;
    float heading = 0;
};

} // namespace railwright::bench
