#include "cli/Steps.h"
#include "format/FileBytes.h"
#include "fuzz/Fuzz.h"

#include <random>
#include <span>

using namespace railwright;
using namespace railwright::fuzz;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t longest);

namespace {

using View = std::span<const std::uint8_t>;
constexpr bool IsChain = std::string_view(RAILWRIGHT_TARGET) == "chain";

/// Returns a random number below `limit`, or 0 if `limit` is 0.
struct Dice {
    std::minstd_rand Engine;
    std::size_t operator()(std::size_t limit) { return limit == 0 ? 0 : Engine() / 7 % limit; }
    const auto& Of(const auto& values) { return values[(*this)(std::size(values))]; }
};

/// Positions of the item count and the first item of a chunk, and the size of the smallest item. Counted from
/// the first of the chunk's own fields.
struct Layout {
    std::string_view Tag;
    std::size_t Count, First, Item;
};
constexpr Layout Layouts[] = {{"TRCK", 4, 12, 28},  {"INFO", 16, 20, 1},  {"BEZR", 16, 20, 60},
                              {"SEGM", 0, 21, 37},  {"FUND", 16, 20, 92}, {"RASC", 16, 20, 4},
                              {"FREN", 16, 20, 28}, {"TUBE", 16, 20, 48}, {"CATW", 16, 20, 28},
                              {"SCEN", 16, 20, 64}, {"SCOB", 16, 20, 88}, {"ENVC", 16, 20, 1},
                              {"TERA", 0, 8, 4},    {"ELEM", 64, 68, 50}};
constexpr Layout Unknown = {"", 0, 4, 4};

constexpr std::int32_t Counts[] = {0, 1, 2, 3, 5, -1, 255, 500, 501, 502, 65536, 0x7FFFFFFF, -0x7FFFFFFF - 1};
/// The bits of 0 and -0, the smallest and the largest, infinities, two NaNs, 1e30, 1e-30, 1, 180, and 999
/// between its neighbours.
constexpr std::uint32_t Floats[] = {0,          0x80000000, 1,          0x00800000, 0x7F7FFFFF, 0x7F800000,
                                    0xFF800000, 0x7FC00000, 0xFFFFFFFF, 0x7149F2CA, 0x0DA24260, 0x3F800000,
                                    0x43340000, 0x4479BFFF, 0x4479C000, 0x4479C001};
constexpr std::string_view Numbers[] = {"0",   "-0",    "1",    "-1",    "0.5", "2.5", "90",
                                        "180", "1e-45", "1e30", "-3e38", "999", "360"};

/// A parsed chunk. Its own fields exclude the number of sub-chunks.
struct Chunk {
    Bytes Tag, Own;
    bool HasCount = false;
    std::vector<Chunk> Inner;

    const Layout& Form() const {
        const auto has = [&](const Layout& layout) { return std::ranges::equal(layout.Tag, Tag); };
        const auto* const found = std::ranges::find_if(Layouts, has);
        return found == std::end(Layouts) ? Unknown : *found;
    }
};

void Append(Bytes& to, View bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}
void AppendLong(Bytes& to, std::int32_t value) {
    to.resize(to.size() + 4), WriteLong(&to.back() - 3, value);
}

/// Parses a chunk at the start of the bytes and removes it.
/// @return false if there is none.
bool Take(View& bytes, Chunk& chunk, int depth = 0) {
    const auto isLetter = [](std::uint8_t byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
    if (bytes.size() < 8 || !std::ranges::all_of(bytes.first(4), isLetter))
        return false;
    const auto size = static_cast<std::size_t>(ReadBits(&bytes[4]));
    if (size > bytes.size() - 8)
        return false;
    chunk = {{bytes.begin(), bytes.begin() + 4}, {}, false, {}};
    const View body = bytes.subspan(8, size);
    bytes = bytes.subspan(8 + size);
    std::size_t own = size;
    // The sub-chunks follow their number, if that many chunks end exactly where this one does.
    for (std::size_t at = 0; at + 4 <= size && depth < 8 && !chunk.HasCount; ++at)
        if (const std::uint32_t count = ReadBits(&body[at]); count < 64 && (count > 0 || at + 4 == size)) {
            View rest = body.subspan(at + 4);
            chunk.Inner.resize(count);
            chunk.HasCount = std::ranges::all_of(
                                 chunk.Inner, [&](Chunk& inner) { return Take(rest, inner, depth + 1); }) &&
                             rest.empty();
            own = chunk.HasCount ? at : size;
        }
    chunk.Inner.resize(chunk.HasCount ? chunk.Inner.size() : 0);
    chunk.Own.assign(body.begin(), body.begin() + static_cast<std::ptrdiff_t>(own));
    return true;
}

/// Writes a chunk. On average one of `wrongOne` sizes and numbers of sub-chunks is wrong; none if it is 0.
void Put(Bytes& to, const Chunk& chunk, Dice& dice, std::size_t wrongOne) {
    const auto number = [&](std::size_t right) {
        return wrongOne > 0 && dice(wrongOne) == 0 ? dice.Of(Counts) : static_cast<std::int32_t>(right);
    };
    Append(to, chunk.Tag);
    const std::size_t sizeAt = to.size();
    AppendLong(to, 0);
    Append(to, chunk.Own);
    if (chunk.HasCount || !chunk.Inner.empty())
        AppendLong(to, number(chunk.Inner.size()));
    for (const Chunk& inner : chunk.Inner)
        Put(to, inner, dice, wrongOne);
    WriteLong(&to[sizeAt], number(to.size() - sizeAt - 4));
}

void ListAll(Chunk& chunk, std::vector<Chunk*>& all) {
    all.push_back(&chunk);
    for (Chunk& inner : chunk.Inner)
        ListAll(inner, all);
}
Chunk& AnyOf(Chunk& root, Dice& dice) {
    std::vector<Chunk*> all;
    ListAll(root, all);
    return *dice.Of(all);
}

/// Repeats or drops one element.
void RepeatOrDrop(auto& list, Dice& dice) {
    if (list.empty())
        return;
    const auto at = list.begin() + static_cast<std::ptrdiff_t>(dice(list.size()));
    if (dice(2) == 0)
        list.erase(at);
    else
        list.insert(at, *at);
}

/// Overwrites four bytes of the chunk's own fields, if it has them.
void Set(Chunk& chunk, std::size_t at, std::uint32_t bits) {
    if (chunk.Own.size() >= 4 && at <= chunk.Own.size() - 4)
        WriteBits(&chunk.Own[at], bits);
}

/// @return the position of an item.
std::size_t AnyItem(const Chunk& chunk, Dice& dice) {
    const Layout& form = chunk.Form();
    return form.First +
           dice((chunk.Own.size() - std::min(chunk.Own.size(), form.First)) / form.Item) * form.Item;
}

void ChangeCount(Chunk& root, Dice& dice) {
    Chunk& chunk = AnyOf(root, dice);
    const std::size_t at = dice(3) > 0 ? chunk.Form().Count : AnyItem(chunk, dice) + dice(chunk.Form().Item);
    Set(chunk, at, static_cast<std::uint32_t>(dice.Of(Counts)));
}

/// Gives a float a special value or that of another float.
void ChangeFloats(Chunk& root, Dice& dice) {
    Chunk& chunk = AnyOf(root, dice);
    const auto any = [&] { return AnyItem(chunk, dice) + dice(chunk.Form().Item / 4) * 4; };
    for (std::size_t i = dice(4) + 1; i > 0; --i) {
        const std::size_t from = any();
        const bool isCopy = dice(2) == 0 && from + 4 <= chunk.Own.size();
        Set(chunk, any(), isCopy ? ReadBits(&chunk.Own[from]) : dice.Of(Floats));
    }
}

/// Repeats or drops an item, and adapts the count.
void ChangeItems(Chunk& root, Dice& dice) {
    Chunk& chunk = AnyOf(root, dice);
    const Layout& form = chunk.Form();
    const std::size_t at = AnyItem(chunk, dice);
    if (at + form.Item > chunk.Own.size())
        return;
    const auto item = chunk.Own.begin() + static_cast<std::ptrdiff_t>(at);
    const Bytes copy(item, item + static_cast<std::ptrdiff_t>(form.Item));
    const std::uint32_t count = ReadBits(&chunk.Own[form.Count]);
    const bool isDrop = dice(3) == 0;
    if (isDrop)
        chunk.Own.erase(item, item + std::ssize(copy));
    else
        chunk.Own.insert(item, copy.begin(), copy.end());
    Set(chunk, form.Count, isDrop ? count - 1 : count + 1);
}

/// Repeats, drops, swaps or moves sub-chunks, or adds an unknown one.
void ChangeTree(Chunk& root, Dice& dice) {
    auto& inner = AnyOf(root, dice).Inner;
    Chunk moved{{'X', 'Y', 'Z', 'W'}, Bytes(dice(40)), dice(2) == 0, {}};
    switch (const std::size_t at = dice(inner.size()); inner.empty() ? 3 : dice(4)) {
    case 0:
        return RepeatOrDrop(inner, dice);
    case 1:
        return std::swap(inner[at], inner[dice(inner.size())]);
    case 2:
        moved = Chunk(inner[at]);
        inner.erase(inner.begin() + static_cast<std::ptrdiff_t>(at));
    }
    auto& into = AnyOf(root, dice).Inner;
    into.insert(into.begin() + static_cast<std::ptrdiff_t>(dice(into.size() + 1)), moved);
}

constexpr void (*Changes[])(Chunk&, Dice&) = {ChangeCount, ChangeFloats, ChangeItems, ChangeTree};

/// @return a step that usually fits a document of that kind.
std::string AnyStep(bool isTrack, Dice& dice) {
    static const auto trackSteps = TrackStepDescriptions(), elementSteps = ElementStepDescriptions();
    const StepDescription& kind = dice.Of(isTrack ? trackSteps : elementSteps);
    std::string step(kind.Name), value(kind.Value.substr(0, kind.Value.find('[')));
    const auto more = dice(3) > 0 ? std::string_view() : kind.Value.substr(value.size());
    for (std::size_t at = 0, end = 0; at < value.size(); at = end + 1) {
        end = std::min(value.find(',', at), value.size());
        step += at == 0 ? '=' : ',';
        step += kind.Words.empty() ? dice.Of(Numbers) : dice.Of(kind.Words);
    }
    if (more.size() > 2)
        step += kind.IsList ? "," + std::string(dice.Of(kind.Words)) : more.substr(1, more.size() - 2);
    return step;
}

/// Changes one line of the steps.
void ChangeSteps(Bytes& steps, bool isTrack, Dice& dice) {
    std::vector<std::string> lines(1);
    for (const std::uint8_t byte : steps)
        byte == '\n' ? lines.emplace_back() : lines.back() += static_cast<char>(byte);
    if (dice(3) == 0)
        RepeatOrDrop(lines, dice);
    else if (std::string& line = lines[dice(lines.size())]; dice(2) == 0)
        line = AnyStep(isTrack, dice);
    else
        line += (line.empty() ? "" : "\n") + AnyStep(isTrack, dice);
    steps.clear();
    for (const std::string& line : lines) {
        if (&line != lines.data())
            steps.push_back('\n');
        steps.insert(steps.end(), line.begin(), line.end());
    }
}

/// A document, and the bytes after its root chunk; for a chain, those after the last NUL.
struct Input {
    Chunk Root;
    Bytes Behind;
    bool IsDocument;

    Input(const std::uint8_t* data, std::size_t size) {
        View bytes(data, size);
        IsDocument = Take(bytes, Root);
        const auto from = IsChain ? std::find(bytes.rbegin(), bytes.rend(), 0).base() : bytes.begin();
        Behind.assign(from, bytes.end());
    }
    /// @return its size, or 0 if it exceeds `longest`.
    std::size_t WriteTo(std::uint8_t* data, std::size_t longest, Dice& dice) const {
        Bytes written;
        Put(written, Root, dice, dice(8) == 0 ? 5 : 0);
        if (IsChain && written.back() != 0)
            written.push_back(0);
        Append(written, Behind);
        if (written.size() > longest)
            return 0;
        std::ranges::copy(written, data);
        return written.size();
    }
};

} // namespace

/// Leaves half of the mutations, and all inputs that are not documents, to the library.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t longest,
                                               unsigned seed) {
    Dice dice{std::minstd_rand(seed)};
    if (dice(2) == 0)
        return LLVMFuzzerMutate(data, size, longest);
    Input input(data, size);
    if (!input.IsDocument)
        return LLVMFuzzerMutate(data, size, longest);
    if (IsChain && dice(2) == 0)
        ChangeSteps(input.Behind, (input.Root.Tag[0] | 0x20) != 'e', dice);
    else
        dice.Of(Changes)(input.Root, dice);
    const std::size_t written = input.WriteTo(data, longest, dice);
    return written > 0 ? written : LLVMFuzzerMutate(data, size, longest);
}

/// Replaces a chunk with one of the second document. Leaves three of four calls to other mutations.
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t longest, unsigned seed) {
    Dice dice{std::minstd_rand(seed)};
    if (dice(4) > 0)
        return 0;
    Input input(first, firstSize), other(second, secondSize);
    if (!input.IsDocument || !other.IsDocument)
        return 0;
    std::vector<Chunk*> all, others;
    ListAll(input.Root, all);
    ListAll(other.Root, others);
    Chunk& place = *dice.Of(all);
    const auto fits = [&](const Chunk* chunk) { return chunk->Tag == place.Tag; };
    const auto same = std::ranges::find_if(others, fits);
    place = same != others.end() ? **same : *dice.Of(others);
    if (dice(2) == 0)
        input.Behind = other.Behind;
    return input.WriteTo(out, longest, dice);
}
