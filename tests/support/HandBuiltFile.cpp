#include "tests/support/HandBuiltFile.h"

#include <algorithm>
#include <bit>

namespace railwright::testing {
namespace {

struct Branch {
    std::string Name;
    std::vector<Branch> Below;
};

const Branch Tree = {"NLIM",
                     {{"TRCK",
                       {{"INFO", {}},
                        {"BEZR", {}},
                        {"SEGM", {}},
                        {"SUPP", {{"FUND", {}}, {"RASC", {}}, {"FREN", {}}, {"TUBE", {}}, {"CATW", {}}}}}},
                      {"SCEN", {{"SCOB", {}}}},
                      {"TERA", {}},
                      {"ENVC", {}}}};

Bytes EmptyFields(const std::string& tag, const Form& form) {
    FileBuilder fields(form);
    if (tag == "NLIM")
        return fields << Longs{form.Version} << Zeros{16};
    if (tag == "TRCK")
        return fields << Longs{0, 0, 0} << Colors{0, 0, 0, 0, 0, 0, 0, 0} << Zeros{16};
    if (tag == "INFO")
        return fields << Zeros{16} << std::string("");
    if (tag == "SEGM")
        return fields << Longs{0} << Flags{false} << Zeros{16} << Zeros{16};
    if (tag == "SUPP")
        return fields << Zeros{32};
    if (tag == "ENVC")
        return fields << Zeros{16} << std::string("") << std::string("") << Zeros{16};
    return ListFields(0, {}, form);
}

Bytes Frame(const std::string& tag, const Bytes& inside, int missingFromSize, const Form& form) {
    const auto size = static_cast<std::int64_t>(inside.size());
    return FileBuilder(form) << Tag{tag} << Longs{size - missingFromSize} << inside;
}

Bytes Chunk(const Branch& branch, const ChunkFields& fields, const Form& form) {
    FileBuilder nested(form);
    int count = 0;
    std::vector<Branch> below = branch.Below;
    if (form.Reversed)
        std::reverse(below.begin(), below.end());
    for (const Branch& sub : below) {
        if (sub.Name == "TERA" && !fields.contains("TERA"))
            continue;
        if (form.UnknownChunksShortBy >= 0) {
            nested << Frame("WXYZ", Bytes(21, 0xA5), form.UnknownChunksShortBy, form);
            ++count;
        }
        nested << Chunk(sub, fields, form);
        ++count;
    }
    const auto own = fields.find(branch.Name);
    FileBuilder inside(form);
    inside << (own == fields.end() ? EmptyFields(branch.Name, form) : own->second);
    inside << Longs{count} << nested;
    return Frame(branch.Name, inside, -form.SizeError, form);
}

} // namespace

FileBuilder& FileBuilder::operator<<(Zeros zeros) {
    bytes.insert(bytes.end(), zeros.Count, static_cast<unsigned char>(form.Noise));
    return *this;
}

FileBuilder& FileBuilder::operator<<(Byte byte) {
    bytes.push_back(static_cast<unsigned char>(byte.Value));
    return *this;
}

FileBuilder& FileBuilder::operator<<(const Tag& tag) {
    for (const char letter : tag.Letters)
        *this << Byte{form.LowerCaseTags ? letter + 0x20 : letter};
    return *this;
}

FileBuilder& FileBuilder::operator<<(const std::string& characters) {
    Put(static_cast<std::int64_t>(characters.size()));
    bytes.insert(bytes.end(), characters.begin(), characters.end());
    return *this;
}

FileBuilder& FileBuilder::operator<<(const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
}

void FileBuilder::Put(std::int64_t value) {
    const std::int64_t unsignedValue = value < 0 ? value + 0x1'0000'0000 : value;
    for (const std::int64_t place : {0x100'0000, 0x1'0000, 0x100, 1})
        *this << Byte{static_cast<int>(unsignedValue / place % 256)};
}

void FileBuilder::Put(float value) {
    Put(static_cast<std::int64_t>(std::bit_cast<std::uint32_t>(value)));
}

void FileBuilder::Put(bool value) {
    *this << Byte{value ? form.True : 0};
}

void FileBuilder::Put(std::uint32_t color) {
    Put(static_cast<std::int64_t>(form.Noise) * 0x100'0000 + color);
}

Bytes TrackFile(const ChunkFields& fields, const Form& form) {
    Bytes file = Chunk(Tree, fields, form);
    file.insert(file.end(), form.Trailing, 'N');
    return file;
}

Bytes ListFields(int count, const Bytes& records, const Form& form) {
    return FileBuilder(form) << Zeros{16} << Longs{count} << records << Zeros{16};
}

} // namespace railwright::testing
