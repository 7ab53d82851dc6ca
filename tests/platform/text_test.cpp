// Text from bytes and back, lower case that depends on no locale, numbers and truth values out of
// text.
#include <gtest/gtest.h>

#include "platform/number_text.h"

namespace {

using namespace std::string_view_literals;

// What is no UTF-8, be it by one byte, is Windows-1252 from end to end.
constexpr std::pair<std::string_view, TextView> kBytes[] = {
    {"\xC3\xA4\0b"sv, u"ä\0b"sv},
    {"\x7F\xDF\xBF\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
     u"\x7F\u07FF\uFFFF\U00010000\U0010FFFF"},
    {"Gr\xFC\xDF \x7F\xA0", u"Grüß \x7F\u00A0"},
    {"\xC3\xBC\xFF", u"Ã¼ÿ"},
    {"\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F",
     u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"},
    {"\x90\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F",
     u"\u0090‘’“”•–—˜™š›œ\u009DžŸ"},
    {"\xED\xA0\x80", u"í\u00A0€"},
    {"\xE2\x82", u"â‚"},
};

template<typename Number>
std::string Shown(std::optional<Number> number) {
    return number ? std::to_string(*number) : "-";
}

// A text as an Integer, as a Long, cut downward as an Integer, and as a truth value.
std::string Read(TextView text) {
    return Shown(RoundedNumber<Integer>(text)) + " " + Shown(RoundedNumber<Long>(text)) + " " +
           Shown(FlooredNumber<Integer>(text)) + " " + Shown(TruthValue(text));
}

const std::pair<std::string_view, std::vector<TextView>> kNumbers[] = {
    {"0 0 0 0", {u"0", u"-0.0", u"1e-999", u"-1E-999", u"&H0", u".0"}},
    {"7 7 7 1", {u"\t7\t", u"7.", u"&h7", u"007", u"+7", u"  7   ", u" &H0007  "}},
    {"0 0 -1 1", {u"-0.5"}},
    {"2 2 1 1", {u"1.5"}},
    {"2 2 2 1", {u"2.5", u"25e-1"}},
    {"150 150 150 1", {u"1.5E+2", u"15e1"}},
    {"32767 32767 32767 1", {u"32767", u"32767.4"}},
    {"- 32768 32767 1", {u"32767.5"}},
    {"-32768 -32768 - 1", {u"-32768.5"}},
    {"-1 65535 -1 1", {u"&HFFFF", u"&H0000ffff"}},
    {"- 65536 - 1", {u"&H10000"}},
    {"- 2147483647 - 1", {u"2147483647", u"&H7FFFFFFF"}},
    {"- -2147483648 - 1", {u"-2147483648"}},
    {"- -1 - 1", {u"&HFFFFFFFF"}},
    {"- - - 1", {u"2147483648", u"-2147483649", u"9223372036854775808", u"1e300"}},
    {"- - - 1", {u"1234567890123456789012345678901234567890", u"True", u"TRUE", u"  true "}},
    {"- - - 0", {u"False", u" fALSE  "}},
    {"- - - -",
     {u"", u" ", u"-", u"+", u".", u"e5", u"1e", u"--1", u"+-1", u"- 1", u"1 2", u"12px", u"1,5"}},
    {"- - - -",
     {u"inf", u"-nan", u"0x10", u"&H", u"&h ", u"&H-1", u"-&H1", u"&HG", u"&HFG", u"&12", u"H12"}},
    {"- - - -",
     {u"1e999", u"-1e999", u"&H100000000", u"\u0663", u"\u0131", u"yes", u"Truely", u"\tTrue"}},
};

} // namespace

TEST(Text, BytesAreUtf8OrElseWindows1252) {
    for (const auto& [bytes, read] : kBytes) {
        EXPECT_EQ(TextFromBytes(bytes), read) << bytes;
        EXPECT_EQ(IsUtf8(bytes), Utf8(read) == bytes) << bytes;
    }
    EXPECT_EQ(Utf8(Text(1, 0xD834) + u"x" + Text(1, 0xDD1E)), "\xEF\xBF\xBDx\xEF\xBF\xBD")
        << "half pairs";
}

TEST(Text, LowerCaseKeepsTheNumberOfCharactersWhateverTheLanguage) {
    const Text half(1, 0xD801);
    EXPECT_EQ(LowerCase(u"SONG.MP3 ÄÖÜ ΣΑΣ I\u0130 \U00010400" + half),
              u"song.mp3 äöü σασ ii \U00010428" + half);
    EXPECT_TRUE(EqualIgnoringCase(u"VELORA.VS4 \U00010400", u"velora.vs4 \U00010428"));
    for (const TextView other : {u"velora.vs", u"velora.vs44", u"velora.vs5", u"", u"elora.vs4"})
        EXPECT_FALSE(EqualIgnoringCase(other, u"VELORA.VS4")) << Utf8(other);
    EXPECT_EQ(Decimal(-7011), u"-7011");
}

TEST(NumberText, EachTextIsANumberATruthValueOrNeither) {
    for (const auto& [read, texts] : kNumbers)
        for (const TextView written : texts)
            EXPECT_EQ(Read(written), read) << Utf8(written);
}
