#pragma once

#include "geometry/TrackSamples.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include <QDataStream>
#include <QFile>
#include <QList>
#include <QString>

/// Yardsticks for the program: the same work, done in the simplest way.
namespace railwright::bench {

/// Copies a file to `into`, which has the same length, and swaps the bytes of each 32-bit word.
inline void ByteSwapCopy(const std::vector<std::uint8_t>& file, std::vector<std::uint8_t>& into) {
    std::size_t at = 0;
    for (std::uint32_t word = 0; at + 4 <= file.size(); at += 4) {
        std::memcpy(&word, file.data() + at, 4);
        word = __builtin_bswap32(word);
        std::memcpy(into.data() + at, &word, 4);
    }
    for (; at < file.size(); ++at)
        into[at] = file[at];
}

/// Bytes to skip.
struct Gap {
    int Size;
    friend QDataStream& operator>>(QDataStream& in, Gap gap) { return in.skipRawData(gap.Size), in; }
};
/// A text preceded by its length.
struct Text {
    QString& Into;
    friend QDataStream& operator>>(QDataStream& in, Text text) {
        qint32 length = 0;
        in >> length;
        QByteArray bytes(length, Qt::Uninitialized);
        in.readRawData(bytes.data(), length);
        text.Into = QString::fromLatin1(bytes);
        return in;
    }
};
inline QDataStream& operator>>(QDataStream& in, Vector3& p) {
    return in >> p.X >> p.Y >> p.Z;
}
template <class Value, std::size_t Size>
QDataStream& operator>>(QDataStream& in, std::array<Value, Size>& values) {
    for (Value& value : values)
        in >> value;
    return in;
}

/// A track in Qt's types. Records without texts are used unchanged.
struct QtTrack {
    struct Train {
        bool Flag = false;
        QString Name;
        std::array<quint32, 4> Color{};
    };
    struct Object {
        QString Text2, FileName;
        Vector3 A, B, C, D, E;
    };
    TrackDocument Numbers; // the values outside of lists
    QString Comments, Environment, EnvironmentText, TerrainTexts[3];
    std::tuple<QList<Train>, QList<BezierNode>, QList<TrackSegment>, QList<FundamentalNode>,
               QList<QList<PreFabSupport>>, QList<FreeNode>, QList<SupportBeam>, QList<WoodCatwalk>,
               QList<Tree>, QList<Object>, QList<float>>
        Lists;

    template <class Item>
    QList<Item>& List() {
        return std::get<QList<Item>>(Lists);
    }
};

/// Reads a whole track with a QDataStream, field by field into lists of structures. Expects the chunks in
/// this program's order.
class QDataStreamReader {
public:
    explicit QDataStreamReader(const std::vector<std::uint8_t>& file)
        : in(QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                     static_cast<qsizetype>(file.size()))) {}
    explicit QDataStreamReader(QFile& file) : in(&file) {}

    /// @return whether the file was read to its end without an error.
    bool Read(QtTrack& d) {
        TrackDocument& n = d.Numbers;
        qint32 count = 0;
        in.setByteOrder(QDataStream::BigEndian);
        in.setFloatingPointPrecision(QDataStream::SinglePrecision);
        Chunk("NLIM", [&] { in >> n.FileHeader.Version >> Gap{16}; });
        Chunk("TRCK", [&] {
            in >> n.TrackHeader.TrackType >> count >> n.TrackHeader.CarsPerTrain;
            Append(d.List<QtTrack::Train>(), count,
                   [&](auto& t) { in >> t.Flag >> Gap{7} >> Text{t.Name} >> t.Color; });
            in >> n.TrackHeader.TrackColor >> Gap{16};
        });
        Chunk("INFO", [&] { in >> Gap{16} >> Text{d.Comments}; });
        List("BEZR", d.List<BezierNode>(), [&](auto& b) {
            in >> b.Position >> b.ControlIn >> b.ControlOut >> b.Roll >> b.FlagA >> b.FlagC >> b.FlagB >>
                Gap{17};
        });
        Chunk("SEGM", [&] {
            in >> count >> n.SegmentList.ClosedCircuit >> Gap{16};
            Append(d.List<TrackSegment>(), count, [&](auto& s) { Segment(s); });
            in >> Gap{16};
        });
        Chunk("SUPP", [&] { in >> Gap{32}; });
        List("FUND", d.List<FundamentalNode>(), [&](auto& f) {
            in >> f.Flag1 >> f.Value1 >> f.Flag2 >> f.Value2 >> Gap{6} >> f.Position >> Gap{64};
        });
        List("RASC", d.List<QList<PreFabSupport>>(), [&](auto& supports) {
            in >> count;
            Append(supports, count, [&](auto& s) { in >> s.SupportType >> s.Value >> Gap{16}; });
        });
        List("FREN", d.List<FreeNode>(), [&](auto& f) { in >> f.Position >> Gap{16}; });
        List("TUBE", d.List<SupportBeam>(), [&](auto& b) {
            for (auto* end : {&b.EndA, &b.EndB})
                in >> (*end)[0] >> (*end)[2] >> (*end)[1] >> Gap{4};
            in >> b.BeamType >> b.Value1 >> b.Value2 >> Gap{4};
        });
        List("CATW", d.List<WoodCatwalk>(), [&](auto& c) {
            in >> c.Value >> c.ExtraBytes;
            in >> Gap{c.ExtraBytes};
        });
        List("SCEN", d.List<Tree>(), [&](auto& t) { in >> t.Position >> t.TreeType >> t.Value >> Gap{44}; });
        List("SCOB", d.List<QtTrack::Object>(), [&](auto& o) {
            in >> Text{o.Text2} >> Text{o.FileName} >> o.A >> o.D.X >> o.B >> o.D.Y >> o.C >> o.D.Z >> o.E;
            in >> Gap{20};
        });
        if (in.device()->peek(4) == "TERA")
            Chunk("TERA", [&] {
                TerrainRecord& t = n.Terrain;
                in >> t.GridSizeX >> t.GridSizeZ >> t.Value1 >> t.Value2 >> Text{d.TerrainTexts[0]} >>
                    t.Value3;
                in >> Text{d.TerrainTexts[1]} >> t.Value4 >> t.Flag1 >> Gap{4} >> Text{d.TerrainTexts[2]};
                in >> t.Value5 >> t.Byte1 >> Gap{15};
                Append(d.List<float>(), t.GridSizeX * t.GridSizeZ, [&](float& height) { in >> height; });
                in >> Gap{16};
            });
        Chunk("ENVC", [&] { in >> Gap{16} >> Text{d.Environment} >> Text{d.EnvironmentText} >> Gap{16}; });
        return in.status() == QDataStream::Ok && in.atEnd();
    }

private:
    template <class Item, class ReadItem>
    static void Append(QList<Item>& items, qint32 count, ReadItem&& read) {
        items.reserve(count);
        for (qint32 i = 0; i < count; ++i) {
            Item item{};
            read(item);
            items.append(item);
        }
    }

    template <class Fields>
    void Chunk(const char* tag, Fields&& fields) {
        QByteArray found(4, ' ');
        qint32 size = 0, subChunks = 0;
        in.readRawData(found.data(), 4);
        in >> size;
        fields();
        in >> subChunks;
        if (found != tag)
            in.setStatus(QDataStream::ReadCorruptData);
    }

    template <class Item, class ReadItem>
    void List(const char* tag, QList<Item>& items, ReadItem&& read) {
        Chunk(tag, [&] {
            qint32 count = 0;
            in >> Gap{16} >> count;
            Append(items, count, read);
            in >> Gap{16};
        });
    }

    void Segment(TrackSegment& s) {
        qint32 size = 0;
        in >> s.SegmentType >> s.CustomColors >> s.Color >> s.Tunnel >> Gap{15} >> size;
        switch (s.SegmentType) {
        case SegmentKind::Station:
            in >> s.StationValue0 >> s.StationValue1 >> s.StationValue2 >> s.StationValue3 >> s.StationByte0;
            in >> s.StationByte1 >> s.StationFlag1 >> s.StationByte2 >> s.StationValue4 >> Gap{4};
            in >> s.StationFlag3 >> s.StationValue8 >> Gap{4} >> s.StationValue9 >> s.StationValue10 >>
                Gap{4};
            in >> s.StationFlag2 >> s.StationValue5 >> s.StationValue6 >> s.StationValue7 >> Gap{64};
            break;
        case SegmentKind::Lift:
            in >> Gap{3} >> s.LiftByte >> s.LiftValue0 >> s.LiftValue1 >> s.LiftValue2 >> Gap{4} >>
                s.LiftFlag1;
            in >> s.LiftFlag2 >> Gap{14};
            break;
        case SegmentKind::Transport:
            in >> s.TransportValue0 >> s.TransportValue1 >> s.TransportValue2 >> Gap{3} >> s.TransportByte;
            in >> s.TransportFlag1 >> s.TransportFlag2 >> Gap{10};
            break;
        case SegmentKind::Brake:
            in >> s.BrakeValue0 >> s.BrakeValue1 >> s.BrakeValue2 >> Gap{4} >> s.BrakeValue6 >> s.BrakeFlag1;
            in >> s.BrakeFlag3 >> s.BrakeValue3 >> s.BrakeValue4 >> s.BrakeValue5 >> s.BrakeFlag4;
            in >> s.BrakeFlag5 >> s.BrakeFlag2 >> Gap{13};
            break;
        default:
            break;
        }
    }

    QDataStream in;
};

/// Computes the 101 points of each span of Track with the textbook formula.
/// @return the length of the curve through them.
inline double TextbookSamples() {
    constexpr double binomials[] = {1, 3, 3, 1};
    double length = 0;
    double previous[3] = {};
    for (std::int32_t span = 0; span < TrackSpanCount(); ++span) {
        const auto start = static_cast<std::size_t>(span);
        const std::size_t end = span + 1 < Track.BezierCurve.NodeCount ? start + 1 : 0;
        const BezierNode &from = Track.BezierCurve.Nodes[start], &to = Track.BezierCurve.Nodes[end];
        const Vector3 points[] = {from.Position, from.ControlOut, to.ControlIn, to.Position};
        for (int step = 0; step <= 100; ++step) {
            const double t = step / 100.0;
            double sample[3] = {};
            for (int i = 0; i <= 3; ++i) {
                const double share = binomials[i] * std::pow(1 - t, 3 - i) * std::pow(t, i);
                sample[0] += share * static_cast<double>(points[i].X);
                sample[1] += share * static_cast<double>(points[i].Y);
                sample[2] += share * static_cast<double>(points[i].Z);
            }
            if (span > 0 || step > 0)
                length +=
                    std::sqrt(std::pow(sample[0] - previous[0], 2) + std::pow(sample[1] - previous[1], 2) +
                              std::pow(sample[2] - previous[2], 2));
            std::copy(sample, sample + 3, previous);
        }
    }
    return length;
}

} // namespace railwright::bench
