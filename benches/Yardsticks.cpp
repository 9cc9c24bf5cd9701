#include "benches/Yardsticks.h"

#include "geometry/TrackSamples.h"

#include <array>
#include <cmath>
#include <cstring>

#include <QDataStream>
#include <QFile>
#include <QList>
#include <QString>

namespace railwright::bench {

void ByteSwapCopy(const FileBytes& file, FileBytes& into) {
    std::size_t at = 0;
    for (; at + 4 <= file.size(); at += 4) {
        std::uint32_t word = 0;
        std::memcpy(&word, file.data() + at, 4);
        word = __builtin_bswap32(word);
        std::memcpy(into.data() + at, &word, 4);
    }
    for (; at < file.size(); ++at)
        into[at] = file[at];
}

namespace {

struct Gap {
    int Size;
    friend QDataStream& operator>>(QDataStream& in, Gap gap) { return in.skipRawData(gap.Size), in; }
};
template <class Value, std::size_t Size>
QDataStream& operator>>(QDataStream& in, std::array<Value, Size>& values) {
    for (Value& value : values)
        in >> value;
    return in;
}
/// A text with its length before it.
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
struct Point {
    float X, Y, Z;
    friend QDataStream& operator>>(QDataStream& in, Point& p) { return in >> p.X >> p.Y >> p.Z; }
};
struct Train {
    bool Flag;
    QString Name;
    std::array<quint32, 4> Colors;
    friend QDataStream& operator>>(QDataStream& in, Train& t) {
        return in >> t.Flag >> Gap{7} >> Text{t.Name} >> t.Colors;
    }
};
struct Node {
    Point Position, In, Out;
    float Roll;
    bool FlagA, FlagC, FlagB;
    friend QDataStream& operator>>(QDataStream& in, Node& n) {
        return in >> n.Position >> n.In >> n.Out >> n.Roll >> n.FlagA >> n.FlagC >> n.FlagB >> Gap{17};
    }
};
struct Segment {
    qint32 Type, Size;
    bool CustomColors, Tunnel;
    std::array<quint32, 3> Colors;
    std::array<float, 11> Values;
    std::array<quint8, 6> Bytes;
    friend QDataStream& operator>>(QDataStream& in, Segment& s) {
        auto& v = s.Values;
        auto& b = s.Bytes;
        in >> s.Type >> s.CustomColors >> s.Colors >> s.Tunnel >> Gap{15} >> s.Size;
        if (s.Type == 1) {
            in >> v[0] >> v[1] >> v[2] >> v[3] >> b[0] >> b[1] >> b[2] >> b[3] >> v[4] >> Gap{4} >> b[4];
            in >> v[5] >> Gap{4} >> v[6] >> v[7] >> Gap{4} >> b[5] >> v[8] >> v[9] >> v[10] >> Gap{64};
        } else if (s.Type == 2) {
            in >> Gap{3} >> b[0] >> v[0] >> v[1] >> v[2] >> Gap{4} >> b[1] >> b[2] >> Gap{14};
        } else if (s.Type == 3) {
            in >> v[0] >> v[1] >> v[2] >> Gap{3} >> b[0] >> b[1] >> b[2] >> Gap{10};
        } else if (s.Type == 4) {
            in >> v[0] >> v[1] >> v[2] >> Gap{4} >> v[3] >> b[0] >> b[1] >> v[4] >> v[5] >> v[6] >> b[2];
            in >> b[3] >> b[4] >> Gap{13};
        }
        return in;
    }
};
struct Footer {
    bool Flag1, Flag2;
    float Value1, Value2;
    Point Position;
    friend QDataStream& operator>>(QDataStream& in, Footer& f) {
        return in >> f.Flag1 >> f.Value1 >> f.Flag2 >> f.Value2 >> Gap{6} >> f.Position >> Gap{64};
    }
};
struct Support {
    qint32 Type;
    float Value;
    friend QDataStream& operator>>(QDataStream& in, Support& s) { return in >> s.Type >> s.Value >> Gap{16}; }
};
struct Free {
    Point Position;
    friend QDataStream& operator>>(QDataStream& in, Free& f) { return in >> f.Position >> Gap{16}; }
};
struct Beam {
    std::array<qint32, 3> EndA, EndB;
    qint32 Type, Number;
    float Value;
    friend QDataStream& operator>>(QDataStream& in, Beam& b) {
        return in >> b.EndA >> Gap{4} >> b.EndB >> Gap{4} >> b.Type >> b.Number >> b.Value >> Gap{4};
    }
};
struct Catwalk {
    std::array<qint32, 6> Values;
    qint32 Extra;
    friend QDataStream& operator>>(QDataStream& in, Catwalk& c) {
        in >> c.Values >> c.Extra;
        return in >> Gap{c.Extra};
    }
};
struct Tree {
    Point Position;
    qint32 Type;
    float Value;
    friend QDataStream& operator>>(QDataStream& in, Tree& t) {
        return in >> t.Position >> t.Type >> t.Value >> Gap{44};
    }
};
struct Object {
    QString Name, FileName;
    Point A, B, C, D, E;
    friend QDataStream& operator>>(QDataStream& in, Object& o) {
        in >> Text{o.Name} >> Text{o.FileName} >> o.A >> o.D.X >> o.B >> o.D.Y >> o.C >> o.D.Z;
        return in >> o.E >> Gap{20};
    }
};

template <class Item>
void Append(QDataStream& in, qint32 count, QList<Item>& items) {
    items.reserve(count);
    for (qint32 i = 0; i < count; ++i) {
        Item item{};
        in >> item;
        items.append(item);
    }
}
struct Document {
    qint32 Version, TrackType, TrainCount, CarsPerTrain, SegmentCount, SupportNodes, GridX = 0, GridZ = 0;
    QString Comments, Environment, EnvironmentText, Text1, Text2, Text3;
    bool Closed, TerrainFlag;
    quint8 TerrainByte;
    std::array<quint32, 8> Colors;
    std::array<float, 5> TerrainValues;
    QList<Train> Trains;
    QList<Node> Nodes;
    QList<Segment> Segments;
    QList<Footer> Footers;
    QList<QList<Support>> Supports;
    QList<Free> FreeNodes;
    QList<Beam> Beams;
    QList<Catwalk> Catwalks;
    QList<Tree> Trees;
    QList<Object> Objects;
    QList<float> Heights;
};

/// The frame of a chunk around `fields`.
template <class Fields>
void Chunk(QDataStream& in, const char* tag, Fields&& fields) {
    QByteArray found(4, '\0');
    in.readRawData(found.data(), 4);
    if (found != tag)
        in.setStatus(QDataStream::ReadCorruptData);
    qint32 size = 0, below = 0;
    in >> size;
    fields();
    in >> below;
}
template <class Item>
void ListChunk(QDataStream& in, const char* tag, QList<Item>& items) {
    Chunk(in, tag, [&] {
        qint32 count = 0;
        in >> Gap{16} >> count;
        Append(in, count, items);
        in >> Gap{16};
    });
}

TrackFigures Read(QDataStream& in) {
    static Document inHand;
    Document& d = inHand = {};
    auto& v = d.TerrainValues;
    in.setByteOrder(QDataStream::BigEndian);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    Chunk(in, "NLIM", [&] { in >> d.Version >> Gap{16}; });
    Chunk(in, "TRCK", [&] {
        in >> d.TrackType >> d.TrainCount >> d.CarsPerTrain;
        Append(in, d.TrainCount, d.Trains);
        in >> d.Colors >> Gap{16};
    });
    Chunk(in, "INFO", [&] { in >> Gap{16} >> Text{d.Comments}; });
    ListChunk(in, "BEZR", d.Nodes);
    Chunk(in, "SEGM", [&] {
        in >> d.SegmentCount >> d.Closed >> Gap{16};
        Append(in, d.SegmentCount, d.Segments);
        in >> Gap{16};
    });
    Chunk(in, "SUPP", [&] { in >> Gap{32}; });
    ListChunk(in, "FUND", d.Footers);
    std::int64_t supports = 0;
    Chunk(in, "RASC", [&] {
        in >> Gap{16} >> d.SupportNodes;
        d.Supports.reserve(d.SupportNodes);
        for (qint32 i = 0; i < d.SupportNodes; ++i) {
            qint32 count = 0;
            in >> count;
            d.Supports.append(QList<Support>());
            Append(in, count, d.Supports.last());
            supports += count;
        }
        in >> Gap{16};
    });
    ListChunk(in, "FREN", d.FreeNodes);
    ListChunk(in, "TUBE", d.Beams);
    ListChunk(in, "CATW", d.Catwalks);
    ListChunk(in, "SCEN", d.Trees);
    ListChunk(in, "SCOB", d.Objects);
    if (in.device()->peek(4) == "TERA")
        Chunk(in, "TERA", [&] {
            in >> d.GridX >> d.GridZ >> v[0] >> v[1] >> Text{d.Text1} >> v[2] >> Text{d.Text2} >> v[3];
            in >> d.TerrainFlag >> Gap{4} >> Text{d.Text3} >> v[4] >> d.TerrainByte >> Gap{15};
            Append(in, d.GridX * d.GridZ, d.Heights);
            in >> Gap{16};
        });
    Chunk(in, "ENVC", [&] { in >> Gap{16} >> Text{d.Environment} >> Text{d.EnvironmentText} >> Gap{16}; });
    if (in.status() != QDataStream::Ok || !in.atEnd() || d.Nodes.isEmpty() || d.Objects.isEmpty())
        return {};
    return {d.Nodes.size(),
            d.Segments.size(),
            supports,
            d.Beams.size(),
            d.Trees.size(),
            d.Objects.size(),
            d.Heights.size(),
            d.Nodes.last().Position.X,
            d.Nodes.last().Roll,
            d.Objects.last().FileName.toStdString()};
}

/// How many ways there are to choose `chosen` of three.
double ChoicesOfThree(int chosen) {
    double choices = 1;
    for (int i = 1; i <= chosen; ++i)
        choices = choices * (3 - chosen + i) / i;
    return choices;
}

double Distance(const std::array<double, 3>& a, const std::array<double, 3>& b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) +
                     (a[2] - b[2]) * (a[2] - b[2]));
}

} // namespace

TrackFigures QDataStreamReader(const FileBytes& file) {
    QDataStream in(QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                           static_cast<qsizetype>(file.size())));
    return Read(in);
}

TrackFigures QDataStreamReader(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDataStream in(&file);
    return Read(in);
}

double TextbookSamples() {
    const auto& nodes = Track.BezierCurve.Nodes;
    double length = 0;
    std::array<double, 3> previous{};
    for (std::int32_t span = 0; span < TrackSpanCount(); ++span) {
        const auto start = static_cast<std::size_t>(span);
        const std::size_t end = span + 1 < Track.BezierCurve.NodeCount ? start + 1 : 0;
        const std::array<Vector3, 4> points = {nodes[start].Position, nodes[start].ControlOut,
                                               nodes[end].ControlIn, nodes[end].Position};
        for (int step = 0; step <= 100; ++step) {
            const double t = step / 100.0;
            std::array<double, 3> sample{};
            for (int i = 0; i <= 3; ++i) {
                const double share = ChoicesOfThree(i) * std::pow(1 - t, 3 - i) * std::pow(t, i);
                const Vector3& point = points[static_cast<std::size_t>(i)];
                sample[0] += share * static_cast<double>(point.X);
                sample[1] += share * static_cast<double>(point.Y);
                sample[2] += share * static_cast<double>(point.Z);
            }
            if (span > 0 || step > 0)
                length += Distance(sample, previous);
            previous = sample;
        }
    }
    return length;
}

} // namespace railwright::bench
