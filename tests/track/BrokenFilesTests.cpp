#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "tests/support/DocumentTest.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <atomic>
#include <cctype>
#include <cstdlib>
#include <new>

/// All bytes that the test program has asked the heap for with `new` so far, given back or not.
static std::atomic<std::size_t> allocated = 0;

void* operator new(std::size_t size) {
    allocated += size;
    if (void* const memory = std::malloc(std::max<std::size_t>(size, 1)))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace railwright::testing {

using BrokenFiles = DocumentTest<Track, LoadTrackFile, SaveTrackFile>;

TEST_F(BrokenFiles, AreRefusedWithTheFaultAndItsByte) {
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RAILWRIGHT_FIXTURES "/broken")) {
        const std::string broken = entry.path().filename().string();
        SCOPED_TRACE(broken);
        ++found;
        Track = Random<TrackDocument>(1);
        Element = Random<ElementDocument>(1);
        const bool isTrack = HasExtension(broken, TrackExtension);
        const std::size_t before = allocated;
        const std::string path = PathFromOutside(entry.path().string());
        FileResult loaded = isTrack ? LoadTrackFile(path) : LoadElementFile(path);
        EXPECT_LT(allocated - before, 20'000U);
        EXPECT_FALSE(loaded);
        for (char& letter : loaded.Reason)
            letter = std::isalnum(letter) ? letter : '-';
        const std::string actual = '.' + std::to_string(loaded.Byte) + '.' + loaded.Reason;
        const std::string expected = broken.substr(broken.find('.'), broken.rfind('.') - broken.find('.'));
        EXPECT_EQ(actual.substr(0, expected.size()), expected);
        EXPECT_EQ(isTrack ? FileOf(Track) : FileOf(Element),
                  isTrack ? FileOf(TrackDocument{}) : FileOf(ElementDocument{}));
    }
    EXPECT_EQ(found, 41);
}

TEST_F(BrokenFiles, NoByteThatIsMissingOrWrongBringsALoadDown) {
    const Bytes good = FileOf(Random<TrackDocument>(5));
    const Bytes empty = FileOf(TrackDocument{});
    WriteBytes(folder.File(name), good);
    std::fstream file(folder.File(name), std::ios::binary | std::ios::in | std::ios::out);
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const int value : {0x00, 0x7F, 0x80, 0xFF, static_cast<int>(good[at])}) {
            file.seekp(static_cast<std::streamoff>(at)).put(static_cast<char>(value)).flush();
            const std::size_t before = allocated;
            const bool loaded{LoadTrackFile(folder.Inside(name))};
            EXPECT_LT(allocated - before, 20 * good.size()) << at;
            const Bytes kept = FileOf(Track); // throws where a count is beyond its list
            EXPECT_TRUE(loaded || kept == empty) << at;
            EXPECT_LE(ComputeChunkSizes(), static_cast<std::int64_t>(good.size() + 4)) << at;
        }
    EXPECT_TRUE(FileOf(Track) == good);
    for (std::size_t size = good.size(); size-- > 0;) {
        std::filesystem::resize_file(folder.File(name), size);
        // The byte behind the file reads as zero: the last of all, or that of the root's number of chunks.
        const bool loaded = LoadTrackFile(folder.Inside(name)).Done;
        EXPECT_EQ(loaded, size == good.size() - 1 || size == 31) << size;
        EXPECT_TRUE(FileOf(Track) == (size == good.size() - 1 ? good : empty)) << size;
    }
}

} // namespace railwright::testing
