#include "tests/support/HandBuiltFile.h"

#include <algorithm>
#include <bit>
#include <cctype>

namespace railwright::testing {
namespace {

struct Branch {
    std::string Tag;
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
        return fields.Long(form.Version).Zeros(16);
    if (tag == "TRCK")
        return fields.Longs({0, 0, 0}).Colors({0, 0, 0, 0, 0, 0, 0, 0}).Zeros(16);
    if (tag == "INFO")
        return fields.Zeros(16).Text("");
    if (tag == "SEGM")
        return fields.Long(0).Flags({false}).Zeros(16).Zeros(16);
    if (tag == "SUPP")
        return fields.Zeros(32);
    if (tag == "ENVC")
        return fields.Zeros(16).Text("").Text("").Zeros(16);
    return ListFields(0, {}, form);
}

Bytes Frame(const std::string& tag, const Bytes& inside, int missingFromSize, const Form& form) {
    const auto size = static_cast<std::int64_t>(inside.size());
    return FileBuilder(form).Tag(tag).Long(size - missingFromSize).Append(inside);
}

Bytes Chunk(const Branch& branch, const ChunkFields& fields, const Form& form) {
    FileBuilder nested(form);
    int count = 0;
    std::vector<Branch> below = branch.Below;
    if (form.Reversed)
        std::reverse(below.begin(), below.end());
    for (const Branch& sub : below) {
        if (sub.Tag == "TERA" && !fields.contains("TERA"))
            continue;
        if (form.UnknownChunksShortBy >= 0) {
            nested.Append(Frame("WXYZ", Bytes(21, 0xA5), form.UnknownChunksShortBy, form));
            ++count;
        }
        nested.Append(Chunk(sub, fields, form));
        ++count;
    }
    const auto own = fields.find(branch.Tag);
    FileBuilder inside(form);
    inside.Append(own == fields.end() ? EmptyFields(branch.Tag, form) : own->second);
    inside.Long(count).Append(nested);
    return Frame(branch.Tag, inside, -form.SizeError, form);
}

} // namespace

FileBuilder& FileBuilder::Byte(int value) {
    bytes.push_back(static_cast<unsigned char>(value));
    return *this;
}

FileBuilder& FileBuilder::Flags(std::initializer_list<bool> values) {
    for (const bool value : values)
        Byte(value ? form.True : 0);
    return *this;
}

FileBuilder& FileBuilder::Long(std::int64_t value) {
    const std::int64_t unsignedValue = value < 0 ? value + 0x1'0000'0000 : value;
    for (const std::int64_t place : {0x100'0000, 0x1'0000, 0x100, 1})
        Byte(static_cast<int>(unsignedValue / place % 256));
    return *this;
}

FileBuilder& FileBuilder::Longs(std::initializer_list<std::int64_t> values) {
    for (const std::int64_t value : values)
        Long(value);
    return *this;
}

FileBuilder& FileBuilder::Singles(std::initializer_list<float> values) {
    for (const float value : values)
        Long(std::bit_cast<std::uint32_t>(value));
    return *this;
}

FileBuilder& FileBuilder::Colors(std::initializer_list<std::uint32_t> values) {
    for (const std::uint32_t value : values)
        Long(static_cast<std::int64_t>(form.Noise) * 0x100'0000 + value);
    return *this;
}

FileBuilder& FileBuilder::Zeros(std::size_t count) {
    bytes.insert(bytes.end(), count, static_cast<unsigned char>(form.Noise));
    return *this;
}

FileBuilder& FileBuilder::Text(const std::string& characters) {
    Long(static_cast<std::int64_t>(characters.size()));
    bytes.insert(bytes.end(), characters.begin(), characters.end());
    return *this;
}

FileBuilder& FileBuilder::Tag(std::string tag) {
    if (form.LowerCaseTags)
        std::transform(tag.begin(), tag.end(), tag.begin(), [](int c) { return std::tolower(c); });
    bytes.insert(bytes.end(), tag.begin(), tag.end());
    return *this;
}

FileBuilder& FileBuilder::Append(const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
}

Bytes TrackFile(const ChunkFields& fields, const Form& form) {
    Bytes file = Chunk(Tree, fields, form);
    file.insert(file.end(), form.Trailing, 'N');
    return file;
}

Bytes ListFields(int count, const Bytes& records, const Form& form) {
    return FileBuilder(form).Zeros(16).Long(count).Append(records).Zeros(16);
}

} // namespace railwright::testing
