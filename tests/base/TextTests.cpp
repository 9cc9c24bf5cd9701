#include "base/Text.h"

#include <gtest/gtest.h>

#include <set>

namespace railwright {
namespace {

text EveryByte() {
    text all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    return all;
}

TEST(Text, EveryByteComesBackThroughUtf8) {
    const text all = EveryByte();
    EXPECT_EQ(FromUtf8(ToUtf8(all, Windows1252()), Windows1252()), all);
    std::set<std::string> characters;
    for (const char byte : all)
        characters.insert(ToUtf8(text(1, byte), Windows1252()));
    EXPECT_EQ(characters.size(), 256U);
}

TEST(Text, BytesStandForTheirCharacters) {
    struct Case {
        const char* Byte;
        const char* Utf8;
    };
    const Case cases[] = {{"A", "A"},
                          {"\x80", "\u20AC"},
                          {"\x81", "\xC2\x81"}, // unassigned: the control character
                                                // of the same number
                          {"\x8D", "\xC2\x8D"},
                          {"\x95", "\u2022"},
                          {"\x99", "\u2122"},
                          {"\x9F", "\u0178"},
                          {"\xA0", "\u00A0"},
                          {"\xDF", "\u00DF"},
                          {"\xFF", "\u00FF"}};
    for (const Case& one : cases) {
        EXPECT_EQ(ToUtf8(one.Byte, Windows1252()), one.Utf8);
        EXPECT_EQ(FromUtf8(one.Utf8, Windows1252()), one.Byte);
    }
}

TEST(Text, LowerCaseCoversAccentedLettersAndNothingElse) {
    // A-Z and the 23 + 7 letters on both sides of the multiplication sign lie 0x20 below their small letters,
    // three letters with a caron or a ligature 0x10 below, and the capital of 0xFF stands at 0x9F.
    text expected = EveryByte();
    for (int byte = 'A'; byte <= 'Z'; ++byte)
        expected[static_cast<std::size_t>(byte)] = static_cast<char>(byte - 'A' + 'a');
    for (const char byte : std::string("\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE"
                                       "\xCF\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD"
                                       "\xDE"))
        expected[static_cast<unsigned char>(byte)] = static_cast<char>(byte + 0x20);
    expected[0x8A] = '\x9A';
    expected[0x8C] = '\x9C';
    expected[0x8E] = '\x9E';
    expected[0x9F] = '\xFF';
    EXPECT_EQ(LowerCase(EveryByte(), Windows1252()), expected);
}

TEST(Text, WhatTheCodePageCannotHoldBecomesAQuestionMark) {
    struct Case {
        const char* Utf8;
        const char* Expected;
    };
    const Case cases[] = {
        {"\u0416\u4E2D", "??"},        // characters of other scripts, one mark each
        {"a\U0001F600z", "a?z"},       // beyond the first plane
        {"\u0080", "?"},               // the byte 0x80 is the euro sign
        {"a\xFFz", "a?z"},             // never a byte of UTF-8
        {"\x80\xBFz", "??z"},          // no lead byte
        {"\xC3", "?"},                 // cut off
        {"\xE2\x82", "??"},            // cut off in the euro sign
        {"\xE2\x82z", "??z"},          // broken off
        {"\xC0\x80", "??"},            // overlong
        {"\xC1\xA1", "??"},            // overlong "a"
        {"\xE0\x83\x84", "???"},       // overlong A with diaeresis
        {"\xED\xA0\x80", "???"},       // half of a surrogate pair
        {"\xF4\x90\x80\x80", "????"},  // above the last character
        {"\xF8\x88\x80\x80z", "????z"} // five bytes announced
    };
    for (const Case& one : cases)
        EXPECT_EQ(FromUtf8(one.Utf8, Windows1252()), one.Expected) << ::testing::PrintToString(one.Utf8);
}

} // namespace
} // namespace railwright
