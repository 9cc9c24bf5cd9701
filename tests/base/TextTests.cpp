#include "base/Text.h"

#include <gtest/gtest.h>

#include <numeric>

namespace railwright::testing {

const text EveryByte = [] {
    text all(256, 0);
    std::iota(all.begin(), all.end(), 0);
    return all;
}();

// Texts in the code page and in UTF-8 do not convert to each other.
static_assert(!std::is_constructible_v<std::string, text> && !std::is_constructible_v<text, std::string>);
static_assert(!std::is_assignable_v<std::string&, text> && !std::is_assignable_v<text&, std::string>);
static_assert(!std::is_convertible_v<text, std::string_view>);

TEST(Text, EveryByteStandsForItsOwnCharacter) {
    EXPECT_EQ(TextOf(BytesOf(EveryByte)), EveryByte);
    EXPECT_EQ(FromUtf8(ToUtf8(EveryByte, Windows1252()), Windows1252()), EveryByte);
    // 0x81 is unassigned and maps to the control character of the same number.
    EXPECT_EQ(ToUtf8("A\x80\x81\x82\x8D\x95\x99\x9F\xA0\xDF\xFF", Windows1252()),
              "A\u20AC\xC2\x81\u201A\xC2\x8D\u2022\u2122\u0178\u00A0\u00DF\u00FF");
}

TEST(Text, LowerCaseCoversAccentedLettersAndNothingElse) {
    // First and last of a range of capitals, and the distance to their small letters.
    text expected = EveryByte;
    const int ranges[][3] = {{0x41, 0x5A, 0x20}, {0xC0, 0xD6, 0x20}, {0xD8, 0xDE, 0x20}, {0x8A, 0x8A, 0x10},
                             {0x8C, 0x8C, 0x10}, {0x8E, 0x8E, 0x10}, {0x9F, 0x9F, 0x60}};
    for (const auto& [first, last, distance] : ranges)
        for (int byte = first; byte <= last; ++byte)
            expected[static_cast<std::size_t>(byte)] = static_cast<char>(byte + distance);
    EXPECT_EQ(LowerCase(EveryByte, Windows1252()), expected);
}

TEST(Text, WhatTheCodePageCannotHoldBecomesAQuestionMark) {
    const std::pair<const char*, const char*> cases[] = {
        {"\u0416\u4E2Da\U0001F600z", "??a?z"}, // one mark per character of another script
        {"\u0080a\xFFz", "?a?z"},              // byte 0x80 is the euro sign, and 0xFF never occurs in UTF-8
        {"\x80\xBFz\xC3", "??z?"},             // no lead byte; truncated
        {"\xE2\x82z\xE2\x82", "??z??"},        // interrupted; truncated
        {"\xC0\x80\xC1\xA1", "????"},          // overlong, and so is the next
        {"\xE0\x83\x84", "???"},
        {"\xED\xA0\x80\xED\xBF\xBF", "??????"}, // halves of surrogate pairs
        {"\xF4\x90\x80\x80", "????"},           // above the last character
        {"\xF8\x90\x80\x80z", "????z"},         // lead byte of five
    };
    for (const auto& [utf8, expected] : cases)
        EXPECT_EQ(FromUtf8(utf8, Windows1252()), expected) << ::testing::PrintToString(utf8);
    EXPECT_EQ(FirstOutside("?\u20AC\u4E2D\u0416", Windows1252()), "\u4E2D");
    EXPECT_EQ(FirstOutside("a\xE2\x82z", Windows1252()), "\xE2");
    EXPECT_EQ(FirstOutside("?\u20AC\u009D", Windows1252()), "");
}

TEST(Text, HasNoControlCharactersOnALineOfOutput) {
    const std::string good = "a b\\\u00E9\u20AC\U0001F3A2~", bad = "\uFFFD";
    EXPECT_EQ(OnOneLine(good), good);
    for (const char* character : {"\n", "\r", "\t", "\x1B", "\x7F", "\u0085", "\u009B", "\u2028", "\u202E",
                                  "\u2066", "\u2069", "\xFF", "\xC3"})
        EXPECT_EQ(OnOneLine("x" + std::string(character)), "x" + bad);
    EXPECT_EQ(OnOneLine(std::string(2, 0)), bad + bad);
    EXPECT_EQ(OnLines("a\tb\r\nc\x1B\u009B"), "a\tb\r\nc" + bad + bad);
}

TEST(Text, ComesOutWholeInPieces) {
    for (const std::size_t size : {0U, 1U, 4096U, 4097U, 10'000U}) {
        std::string whole;
        InUtf8(text(size, '\xE9'), Windows1252(), [&whole](std::string_view piece) { whole += piece; });
        EXPECT_EQ(whole, ToUtf8(text(size, '\xE9'), Windows1252())) << size;
    }
}

} // namespace railwright::testing
