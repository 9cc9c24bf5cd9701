#include "cli/Dump.h"

#include "base/NumberFormat.h"
#include "element/ElementDocument.h"
#include "platform/CodePage.h"
#include "track/TrackDocument.h"

#include <nlohmann/json.hpp>

#include <bit>
#include <cmath>
#include <cstddef>

namespace railwright {
namespace {

/// An array computed while it is printed: `At` returns the value at an index.
template <class ValueAt>
struct Array {
    Array(std::int32_t count, ValueAt at) : Count(static_cast<std::size_t>(count)), At(std::move(at)) {}
    std::size_t Count;
    ValueAt At;
};

template <class List>
auto Items(const List& items, std::int32_t count) {
    return Array(
        count, [&items](std::size_t i) -> const auto& { return items[i]; });
}

/// Prints values as JSON in one pass, so that it needs no copy of the document. The JSON library, which only
/// prints complete documents, formats strings and floats.
class JsonPrinter {
public:
    explicit JsonPrinter(TextOutput& output) : out(output) {}

    void Print(const TrackDocument& r) {
        Object("FileHeader", r.FileHeader, "TrackHeader", r.TrackHeader, "TrackInfo", r.TrackInfo,
               "BezierCurve", r.BezierCurve, "SegmentList", r.SegmentList, "SupportHeader", r.SupportHeader,
               "FundamentalNodes", r.FundamentalNodes, "PreFabSupports", r.PreFabSupports, "FreeNodes",
               r.FreeNodes, "SupportBeams", r.SupportBeams, "WoodCatwalks", r.WoodCatwalks, "Scenery",
               r.Scenery, "SceneryObjects", r.SceneryObjects, "Terrain", r.Terrain, "Environment",
               r.Environment);
    }
    void Print(const FileHeaderRecord& r) { Object("Version", r.Version); }
    void Print(const TrackHeaderRecord& r) {
        Object("TrackType", r.TrackType, "Trains", Items(r.Trains, r.NumTrains), "NumTrains", r.NumTrains,
               "CarsPerTrain", r.CarsPerTrain, "TrackColor", r.TrackColor);
    }
    void Print(const TrainRecord& r) { Object("Flag", r.Flag, "Color", r.Color, "Name", r.Name); }
    void Print(const TrackInfoRecord& r) { Object("AuthorComments", r.AuthorComments); }
    void Print(const BezierCurveRecord& r) {
        Object("NodeCount", r.NodeCount, "Nodes", Items(r.Nodes, r.NodeCount));
    }
    void Print(const BezierNode& r) {
        Object("Position", r.Position, "ControlIn", r.ControlIn, "ControlOut", r.ControlOut, "Roll", r.Roll,
               "FlagA", r.FlagA, "FlagB", r.FlagB, "FlagC", r.FlagC);
    }
    void Print(const SegmentListRecord& r) {
        Object("ClosedCircuit", r.ClosedCircuit, "SegmentCount", r.SegmentCount, "Segments",
               Items(r.Segments, r.SegmentCount));
    }
    void Print(const TrackSegment& r) {
        Object("SegmentType", r.SegmentType, "Color", r.Color, "CustomColors", r.CustomColors, "Tunnel",
               r.Tunnel, "StationValue0", r.StationValue0, "StationValue1", r.StationValue1, "StationValue2",
               r.StationValue2, "StationValue3", r.StationValue3, "StationFlag1", r.StationFlag1,
               "StationValue4", r.StationValue4, "StationByte0", r.StationByte0, "StationByte1",
               r.StationByte1, "StationByte2", r.StationByte2, "StationFlag2", r.StationFlag2,
               "StationValue5", r.StationValue5, "StationValue6", r.StationValue6, "StationValue7",
               r.StationValue7, "StationFlag3", r.StationFlag3, "StationValue8", r.StationValue8,
               "StationValue9", r.StationValue9, "StationValue10", r.StationValue10, "LiftValue0",
               r.LiftValue0, "LiftValue1", r.LiftValue1, "LiftValue2", r.LiftValue2, "LiftByte", r.LiftByte,
               "LiftFlag1", r.LiftFlag1, "LiftFlag2", r.LiftFlag2, "TransportValue0", r.TransportValue0,
               "TransportValue1", r.TransportValue1, "TransportValue2", r.TransportValue2, "TransportByte",
               r.TransportByte, "TransportFlag1", r.TransportFlag1, "TransportFlag2", r.TransportFlag2,
               "BrakeFlag1", r.BrakeFlag1, "BrakeFlag2", r.BrakeFlag2, "BrakeValue0", r.BrakeValue0,
               "BrakeValue1", r.BrakeValue1, "BrakeValue2", r.BrakeValue2, "BrakeFlag3", r.BrakeFlag3,
               "BrakeValue3", r.BrakeValue3, "BrakeValue4", r.BrakeValue4, "BrakeValue5", r.BrakeValue5,
               "BrakeValue6", r.BrakeValue6, "BrakeFlag4", r.BrakeFlag4, "BrakeFlag5", r.BrakeFlag5);
    }
    void Print(const SupportHeaderRecord&) { out << "{}"; }
    void Print(const FundamentalNodesRecord& r) {
        Object("Count", r.Count, "Items", Items(r.Items, r.Count));
    }
    void Print(const FundamentalNode& r) {
        Object("Position", r.Position, "Flag1", r.Flag1, "Value1", r.Value1, "Flag2", r.Flag2, "Value2",
               r.Value2);
    }
    void Print(const PreFabSupportsRecord& r) {
        const auto node = [&r](std::size_t i) { return r.SupportsOf(r.Nodes[i]); };
        Object("NodeCount", r.NodeCount, "Nodes", Array(r.NodeCount, node));
    }
    void Print(const std::span<const PreFabSupport>& supports) {
        const auto count = static_cast<std::int32_t>(supports.size());
        Object("SupportCount", count, "Supports", Items(supports, count));
    }
    void Print(const PreFabSupport& r) { Object("SupportType", r.SupportType, "Value", r.Value); }
    void Print(const FreeNodesRecord& r) { Object("Count", r.Count, "Items", Items(r.Items, r.Count)); }
    void Print(const FreeNode& r) { Object("Position", r.Position); }
    void Print(const SupportBeamsRecord& r) { Object("Count", r.Count, "Items", Items(r.Items, r.Count)); }
    void Print(const SupportBeam& r) {
        Object("EndA", r.EndA, "EndB", r.EndB, "BeamType", r.BeamType, "Value1", r.Value1, "Value2",
               r.Value2);
    }
    void Print(const WoodCatwalksRecord& r) { Object("Count", r.Count, "Items", Items(r.Items, r.Count)); }
    void Print(const WoodCatwalk& r) { Object("Value", r.Value, "ExtraBytes", r.ExtraBytes); }
    void Print(const SceneryRecord& r) {
        Object("TreeCount", r.TreeCount, "Trees", Items(r.Trees, r.TreeCount));
    }
    void Print(const Tree& r) { Object("Position", r.Position, "Value", r.Value, "TreeType", r.TreeType); }
    void Print(const SceneryObjectsRecord& r) { Object("Count", r.Count, "Items", Items(r.Items, r.Count)); }
    void Print(const SceneryObject& r) {
        Object("FileName", r.FileName, "Text2", r.Text2, "VectorA", r.VectorA, "VectorB", r.VectorB,
               "VectorC", r.VectorC, "VectorD", r.VectorD, "VectorE", r.VectorE);
    }
    void Print(const TerrainRecord& r) {
        // Print heights as columns. A grid without points has no columns.
        const auto column = [&r](std::size_t x) {
            const auto height = [&r, x](std::size_t z) {
                return r.HeightAt(static_cast<std::int32_t>(x), static_cast<std::int32_t>(z));
            };
            return Array(r.GridSizeZ, height);
        };
        Object("HasTerrain", r.HasTerrain, "GridSizeX", r.GridSizeX, "GridSizeZ", r.GridSizeZ, "Value1",
               r.Value1, "Value2", r.Value2, "Text1", r.Text1, "Value3", r.Value3, "Text2", r.Text2, "Value4",
               r.Value4, "Text3", r.Text3, "Value5", r.Value5, "Byte1", r.Byte1, "Flag1", r.Flag1, "Heights",
               Array(r.GridSizeZ > 0 ? r.GridSizeX : 0, column));
    }
    void Print(const EnvironmentRecord& r) {
        Object("PreferredEnvironment", r.PreferredEnvironment, "Text2", r.Text2);
    }
    void Print(const ElementDocument& r) {
        Object("NodeCount", r.NodeCount, "Nodes", Items(r.Nodes, r.NodeCount + 1));
    }
    void Print(const ElementNode& r) {
        Object("Position", r.Position, "ControlOut", r.ControlOut, "ControlIn", r.ControlIn, "Roll", r.Roll,
               "FlagA", r.FlagA, "FlagB", r.FlagB);
    }

private:
    void Print(bool value) { out << (value ? "true" : "false"); }
    void Print(std::integral auto value) { out << value; }
    void Print(float value) {
        // The library is slow, and many fields have the same value throughout a document.
        if (const auto bits = std::bit_cast<std::uint32_t>(value); bits != printedBits || printed.empty()) {
            printed = std::isfinite(value) ? Json(value).dump() : '"' + ShortestFloat(value) + '"';
            printedBits = bits;
        }
        out << printed;
    }
    void Print(const text& characters) {
        out << '"';
        InUtf8(characters, SystemCodePage(), [this](std::string_view utf8) {
            const std::string quoted = Json(utf8).dump();
            PrintEscaped(std::string_view(quoted).substr(1, quoted.size() - 2));
        });
        out << '"';
    }
    /// Escapes U+007F to U+009F as \u00xx. The library leaves them, but terminals may obey them.
    void PrintEscaped(std::string_view json) {
        constexpr std::string_view digits = "0123456789abcdef";
        for (std::size_t i = 0; i < json.size(); ++i) {
            const bool isDelete = json[i] == '\x7F';
            const bool isC1 =
                json[i] == '\xC2' && i + 1 < json.size() && static_cast<unsigned char>(json[i + 1]) < 0xA0;
            if (isDelete || isC1) {
                const auto code = static_cast<unsigned char>(json[isC1 ? ++i : i]);
                out << "\\u00" << digits[code / 16] << digits[code % 16];
            } else {
                out << json[i];
            }
        }
    }
    void Print(const Vector3& v) { Print(std::array{v.X, v.Y, v.Z}); }
    template <class Value, std::size_t Size>
    void Print(const std::array<Value, Size>& values) {
        Print(Array(static_cast<std::int32_t>(Size), [&values](std::size_t i) { return values[i]; }));
    }
    template <class ValueAt>
    void Print(const Array<ValueAt>& array) {
        out << '[';
        ++depth;
        for (std::size_t i = 0; i < array.Count; ++i) {
            out << (i > 0 ? "," : "");
            BeginLine();
            Print(array.At(i));
        }
        --depth;
        if (array.Count > 0)
            BeginLine();
        out << ']';
    }

    /// Prints an object from alternating names and values.
    template <class... Members>
    void Object(const Members&... members) {
        out << '{';
        ++depth;
        PrintMembers("", members...);
        --depth;
        BeginLine();
        out << '}';
    }
    template <class Value, class... Members>
    void PrintMembers(const char* before, const char* name, const Value& value, const Members&... others) {
        out << before;
        BeginLine();
        out << '"' << name << "\": ";
        Print(value);
        if constexpr (sizeof...(others) > 0)
            PrintMembers(",", others...);
    }

    void BeginLine() { out << std::string_view("\n                    ").substr(0, 1 + 2 * depth); }

    using Json = nlohmann::json;
    TextOutput& out;
    std::size_t depth = 0;
    std::uint32_t printedBits = 0;
    std::string printed;
};

template <class Document>
void Dump(const Document& document, TextOutput& out) {
    JsonPrinter(out).Print(document);
    out << '\n';
}

} // namespace

void DumpTrack(TextOutput& out) {
    Dump(Track, out);
}

void DumpElement(TextOutput& out) {
    Dump(Element, out);
}

} // namespace railwright
