// Text from bytes and back, and lower case that depends on no locale.
#include <gtest/gtest.h>

#include "platform/text.h"

TEST(Text, BytesAreUtf8OrElseWindows1252) {
    EXPECT_EQ(TextFromBytes("Gr\xC3\xBC\xC3\x9F"), u"Grüß");
    EXPECT_EQ(TextFromBytes("Gr\xFC\xDF \x80 \x81"), u"Grüß \u20AC \u0081");
    EXPECT_EQ(TextFromBytes("\xF0\x9D\x84\x9E"), u"\U0001D11E");
    EXPECT_EQ(TextFromBytes(std::string_view("a\0b", 3)), Text(u"a\0b", 3));
    EXPECT_EQ(TextFromBytes(""), u"");
    // One bad byte anywhere makes all of it Windows-1252.
    EXPECT_EQ(TextFromBytes("\xC3\xBC\xFF"), u"\u00C3\u00BC\u00FF");
}

TEST(Text, WhatIsNoUtf8IsRefused) {
    for (const char* bytes : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xE2\x82", "\xFE"})
        EXPECT_FALSE(IsUtf8(bytes)) << bytes;
    EXPECT_TRUE(IsUtf8("\xF4\x8F\xBF\xBF"));
}

TEST(Text, HalfAPairBecomesTheReplacement) {
    EXPECT_EQ(Utf8(Text(1, 0xD834) + u"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf8(u"\U0001D11E"), "\xF0\x9D\x84\x9E");
}

TEST(Text, LowerCaseKeepsTheNumberOfCharacters) {
    EXPECT_EQ(LowerCase(u"SONG.MP3 ÄÖÜ ΣΑΣ"), u"song.mp3 äöü σασ");
    EXPECT_EQ(LowerCase(u"I"), u"i") << "also where the user's language has another small letter";
    EXPECT_EQ(LowerCase(u"\u0130"), u"i") << "the long mapping would be two characters";
    EXPECT_EQ(LowerCase(u"\U00010400"), u"\U00010428");
    EXPECT_TRUE(EqualIgnoringCase(u"VELORA.VS4", u"velora.vs4"));
}
