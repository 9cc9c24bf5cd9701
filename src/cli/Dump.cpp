#include "cli/Dump.h"

#include "base/NumberFormat.h"
#include "element/ElementDocument.h"
#include "platform/CodePage.h"
#include "track/TrackDocument.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstddef>

namespace railwright {
namespace {

using Json = nlohmann::ordered_json;

/// The values of the records as JSON. A whole number, a flag and a colour are what the library makes of them.

template <class Value>
Json Of(const Value& value) {
    return value;
}

Json Of(float value) {
    return std::isfinite(value) ? Json(value) : Json(ShortestFloat(value));
}

Json Of(const text& characters) {
    return ToUtf8(characters, SystemCodePage());
}

Json Of(const Vector3& vector) {
    return Json::array({Of(vector.X), Of(vector.Y), Of(vector.Z)});
}

Json Of(const TrainRecord& r) {
    return {{"Flag", r.Flag}, {"Color", r.Color}, {"Name", Of(r.Name)}};
}

Json Of(const BezierNode& r) {
    return {{"Position", Of(r.Position)},
            {"ControlIn", Of(r.ControlIn)},
            {"ControlOut", Of(r.ControlOut)},
            {"Roll", Of(r.Roll)},
            {"FlagA", r.FlagA},
            {"FlagB", r.FlagB},
            {"FlagC", r.FlagC}};
}

Json Of(const TrackSegment& r) {
    return {{"SegmentType", r.SegmentType},
            {"Color", r.Color},
            {"CustomColors", r.CustomColors},
            {"Tunnel", r.Tunnel},
            {"StationValue0", Of(r.StationValue0)},
            {"StationValue1", Of(r.StationValue1)},
            {"StationValue2", Of(r.StationValue2)},
            {"StationValue3", Of(r.StationValue3)},
            {"StationFlag1", r.StationFlag1},
            {"StationValue4", Of(r.StationValue4)},
            {"StationByte0", r.StationByte0},
            {"StationByte1", r.StationByte1},
            {"StationByte2", r.StationByte2},
            {"StationFlag2", r.StationFlag2},
            {"StationValue5", Of(r.StationValue5)},
            {"StationValue6", Of(r.StationValue6)},
            {"StationValue7", Of(r.StationValue7)},
            {"StationFlag3", r.StationFlag3},
            {"StationValue8", Of(r.StationValue8)},
            {"StationValue9", Of(r.StationValue9)},
            {"StationValue10", Of(r.StationValue10)},
            {"LiftValue0", Of(r.LiftValue0)},
            {"LiftValue1", Of(r.LiftValue1)},
            {"LiftValue2", Of(r.LiftValue2)},
            {"LiftByte", r.LiftByte},
            {"LiftFlag1", r.LiftFlag1},
            {"LiftFlag2", r.LiftFlag2},
            {"TransportValue0", Of(r.TransportValue0)},
            {"TransportValue1", Of(r.TransportValue1)},
            {"TransportValue2", Of(r.TransportValue2)},
            {"TransportByte", r.TransportByte},
            {"TransportFlag1", r.TransportFlag1},
            {"TransportFlag2", r.TransportFlag2},
            {"BrakeFlag1", r.BrakeFlag1},
            {"BrakeFlag2", r.BrakeFlag2},
            {"BrakeValue0", Of(r.BrakeValue0)},
            {"BrakeValue1", Of(r.BrakeValue1)},
            {"BrakeValue2", Of(r.BrakeValue2)},
            {"BrakeFlag3", r.BrakeFlag3},
            {"BrakeValue3", Of(r.BrakeValue3)},
            {"BrakeValue4", Of(r.BrakeValue4)},
            {"BrakeValue5", Of(r.BrakeValue5)},
            {"BrakeValue6", Of(r.BrakeValue6)},
            {"BrakeFlag4", r.BrakeFlag4},
            {"BrakeFlag5", r.BrakeFlag5}};
}

Json Of(const FundamentalNode& r) {
    return {{"Position", Of(r.Position)},
            {"Flag1", r.Flag1},
            {"Value1", Of(r.Value1)},
            {"Flag2", r.Flag2},
            {"Value2", Of(r.Value2)}};
}

Json Of(const PreFabSupport& r) {
    return {{"SupportType", r.SupportType}, {"Value", Of(r.Value)}};
}

Json Of(const FreeNode& r) {
    return {{"Position", Of(r.Position)}};
}

Json Of(const SupportBeam& r) {
    return {{"EndA", r.EndA},
            {"EndB", r.EndB},
            {"BeamType", r.BeamType},
            {"Value1", r.Value1},
            {"Value2", Of(r.Value2)}};
}

Json Of(const WoodCatwalk& r) {
    return {{"Value", r.Value}, {"ExtraBytes", r.ExtraBytes}};
}

Json Of(const Tree& r) {
    return {{"Position", Of(r.Position)}, {"Value", Of(r.Value)}, {"TreeType", r.TreeType}};
}

Json Of(const SceneryObject& r) {
    return {{"FileName", Of(r.FileName)}, {"Text2", Of(r.Text2)},     {"VectorA", Of(r.VectorA)},
            {"VectorB", Of(r.VectorB)},   {"VectorC", Of(r.VectorC)}, {"VectorD", Of(r.VectorD)},
            {"VectorE", Of(r.VectorE)}};
}

Json Of(const ElementNode& r) {
    return {{"Position", Of(r.Position)},
            {"ControlOut", Of(r.ControlOut)},
            {"ControlIn", Of(r.ControlIn)},
            {"Roll", Of(r.Roll)},
            {"FlagA", r.FlagA},
            {"FlagB", r.FlagB}};
}

template <class List>
Json Items(const List& items, std::int32_t count) {
    Json list = Json::array();
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        list.push_back(Of(items[i]));
    return list;
}

Json PreFabNodes(const PreFabSupportsRecord& r) {
    Json nodes = Json::array();
    for (std::size_t i = 0; i < static_cast<std::size_t>(r.NodeCount); ++i) {
        const auto supports = r.SupportsOf(r.Nodes[i]);
        nodes.push_back({{"SupportCount", r.Nodes[i].SupportCount},
                         {"Supports", Items(supports, static_cast<std::int32_t>(supports.size()))}});
    }
    return nodes;
}

/// The heights as columns, `[x][z]`; none where the grid has no points.
Json Columns(const TerrainRecord& r) {
    Json columns = Json::array();
    for (std::int32_t x = 0; x < (r.GridSizeZ > 0 ? r.GridSizeX : 0); ++x) {
        Json column = Json::array();
        for (std::int32_t z = 0; z < r.GridSizeZ; ++z)
            column.push_back(Of(r.HeightAt(x, z)));
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace

std::string DumpTrack() {
    const TrackDocument& d = Track;
    const Json document = {
        {"FileHeader", {{"Version", d.FileHeader.Version}}},
        {"TrackHeader",
         {{"TrackType", d.TrackHeader.TrackType},
          {"Trains", Items(d.TrackHeader.Trains, d.TrackHeader.NumTrains)},
          {"NumTrains", d.TrackHeader.NumTrains},
          {"CarsPerTrain", d.TrackHeader.CarsPerTrain},
          {"TrackColor", d.TrackHeader.TrackColor}}},
        {"TrackInfo", {{"AuthorComments", Of(d.TrackInfo.AuthorComments)}}},
        {"BezierCurve",
         {{"NodeCount", d.BezierCurve.NodeCount},
          {"Nodes", Items(d.BezierCurve.Nodes, d.BezierCurve.NodeCount)}}},
        {"SegmentList",
         {{"ClosedCircuit", d.SegmentList.ClosedCircuit},
          {"SegmentCount", d.SegmentList.SegmentCount},
          {"Segments", Items(d.SegmentList.Segments, d.SegmentList.SegmentCount)}}},
        {"SupportHeader", Json::object()},
        {"FundamentalNodes",
         {{"Count", d.FundamentalNodes.Count},
          {"Items", Items(d.FundamentalNodes.Items, d.FundamentalNodes.Count)}}},
        {"PreFabSupports",
         {{"NodeCount", d.PreFabSupports.NodeCount}, {"Nodes", PreFabNodes(d.PreFabSupports)}}},
        {"FreeNodes", {{"Count", d.FreeNodes.Count}, {"Items", Items(d.FreeNodes.Items, d.FreeNodes.Count)}}},
        {"SupportBeams",
         {{"Count", d.SupportBeams.Count}, {"Items", Items(d.SupportBeams.Items, d.SupportBeams.Count)}}},
        {"WoodCatwalks",
         {{"Count", d.WoodCatwalks.Count}, {"Items", Items(d.WoodCatwalks.Items, d.WoodCatwalks.Count)}}},
        {"Scenery",
         {{"TreeCount", d.Scenery.TreeCount}, {"Trees", Items(d.Scenery.Trees, d.Scenery.TreeCount)}}},
        {"SceneryObjects",
         {{"Count", d.SceneryObjects.Count},
          {"Items", Items(d.SceneryObjects.Items, d.SceneryObjects.Count)}}},
        {"Terrain",
         {{"HasTerrain", d.Terrain.HasTerrain},
          {"GridSizeX", d.Terrain.GridSizeX},
          {"GridSizeZ", d.Terrain.GridSizeZ},
          {"Value1", Of(d.Terrain.Value1)},
          {"Value2", Of(d.Terrain.Value2)},
          {"Text1", Of(d.Terrain.Text1)},
          {"Value3", Of(d.Terrain.Value3)},
          {"Text2", Of(d.Terrain.Text2)},
          {"Value4", Of(d.Terrain.Value4)},
          {"Text3", Of(d.Terrain.Text3)},
          {"Value5", Of(d.Terrain.Value5)},
          {"Byte1", d.Terrain.Byte1},
          {"Flag1", d.Terrain.Flag1},
          {"Heights", Columns(d.Terrain)}}},
        {"Environment",
         {{"PreferredEnvironment", Of(d.Environment.PreferredEnvironment)},
          {"Text2", Of(d.Environment.Text2)}}}};
    return document.dump(2);
}

std::string DumpElement() {
    const Json document = {{"NodeCount", Element.NodeCount},
                           {"Nodes", Items(Element.Nodes, Element.NodeCount + 1)}};
    return document.dump(2);
}

} // namespace railwright
