#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "tests/support/DocumentBytes.h"
#include "tests/support/FailingFiles.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <atomic>
#include <cctype>
#include <cstdlib>
#include <new>

namespace {
/// All bytes that the test program has asked the heap for with `new` so far, given back or not.
std::atomic<std::size_t> allocated = 0;
} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    allocated += size;
    return std::malloc(std::max<std::size_t>(size, 1));
}
void* operator new(std::size_t size) {
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace railwright {
namespace {

using namespace testing;

TEST(BrokenFiles, AreRefusedWithTheFaultAndItsByte) {
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RAILWRIGHT_FIXTURES "/broken")) {
        // The name is made of the fault, the byte and the beginning of the reason.
        const std::string name = entry.path().filename().string();
        const std::size_t byte = name.find('.') + 1;
        const std::size_t reason = name.find('.', byte) + 1;
        SCOPED_TRACE(name);
        ++found;
        Track = RandomTrack(1);
        Element = RandomElement(1);
        const std::string path = PathFromOutside(entry.path().string());
        const bool isTrack = HasExtension(name, TrackExtension);
        const std::size_t before = allocated;
        FileResult loaded = isTrack ? LoadTrackFile(path) : LoadElementFile(path);
        EXPECT_LT(allocated - before, 20'000U);
        EXPECT_FALSE(loaded);
        EXPECT_EQ(std::to_string(loaded.Byte), name.substr(byte, reason - byte - 1));
        std::replace_if(
            loaded.Reason.begin(), loaded.Reason.end(), [](char c) { return !std::isalnum(c); }, '-');
        EXPECT_EQ(loaded.Reason.substr(0, name.rfind('.') - reason),
                  name.substr(reason, name.rfind('.') - reason));
        if (isTrack)
            ExpectSame(FileOf(Track), FileOf(TrackDocument{}));
        else
            ExpectSame(FileOf(Element), FileOf(ElementDocument{}));
    }
    EXPECT_EQ(found, 40);
}

TEST(BrokenFiles, EveryTruncationIsRefused) {
    const TemporaryFolder folder;
    const Bytes whole = ReadBytes(Example("switchback-spur.nltrack"));
    const Bytes empty = FileOf(TrackDocument{});
    WriteBytes(folder.File("a.nltrack"), whole);
    for (std::size_t size = whole.size(); size-- > 0;) {
        std::filesystem::resize_file(folder.File("a.nltrack"), size);
        // The byte behind the file reads as zero: the file's last one, or that of the root's number of
        // chunks.
        const bool loaded{LoadTrackFile(folder.Inside("a.nltrack"))};
        EXPECT_EQ(loaded, size == whole.size() - 1 || size == 31) << size;
        EXPECT_TRUE(FileOf(Track) == (size == whole.size() - 1 ? whole : empty)) << size;
    }
}

TEST(BrokenFiles, NoSingleByteBringsALoadDown) {
    const TemporaryFolder folder;
    const Bytes good = FileOf(RandomTrack(5));
    const Bytes empty = FileOf(TrackDocument{});
    WriteBytes(folder.File("a.nltrack"), good);
    std::fstream file(folder.File("a.nltrack"), std::ios::binary | std::ios::in | std::ios::out);
    for (std::size_t at = 0; at < good.size(); ++at) {
        for (const int value : {0x00, 0x7F, 0x80, 0xFF, static_cast<int>(good[at])}) {
            file.seekp(static_cast<std::streamoff>(at)).put(static_cast<char>(value)).flush();
            const std::size_t before = allocated;
            const bool loaded{LoadTrackFile(folder.Inside("a.nltrack"))};
            EXPECT_LT(allocated - before, 20 * good.size()) << at;
            const Bytes kept = FileOf(Track); // throws where a count is beyond its list
            EXPECT_TRUE(loaded || kept == empty) << at;
            EXPECT_LE(ComputeChunkSizes(), static_cast<std::int64_t>(good.size() + 4)) << at;
        }
    }
    EXPECT_TRUE(FileOf(Track) == good);
}

} // namespace
} // namespace railwright
