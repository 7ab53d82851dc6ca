// Numbers out of ini files: what converts, to what, and what doesn't.
#include <gtest/gtest.h>

#include "platform/number_text.h"

namespace {

struct Row {
    const char16_t* Written;
    std::optional<Integer> AsInteger;
    std::optional<Long> AsLong;
};

constexpr Row kRows[] = {
    {u"0", 0, 0},
    {u"-0", 0, 0},
    {u" 12 ", 12, 12},
    {u"\t7\t", 7, 7},
    {u"+5", 5, 5},
    {u"007", 7, 7},
    {u".5", 0, 0},
    {u"1.", 1, 1},
    {u"1.5", 2, 2},
    {u"2.5", 2, 2},
    {u"-2.5", -2, -2},
    {u"-0.5", 0, 0},
    {u"2.5000001", 3, 3},
    {u"1e2", 100, 100},
    {u"1.5E+1", 15, 15},
    {u"25e-1", 2, 2},
    {u"1e-999", 0, 0},
    {u"32767", 32767, 32767},
    {u"32767.4", 32767, 32767},
    {u"32767.5", {}, 32768},
    {u"-32768.5", -32768, -32768},
    {u"-32769", {}, -32769},
    {u"1e9", {}, 1000000000},
    {u"2147483647", {}, 2147483647},
    {u"-2147483648", {}, -2147483647 - 1},
    {u"&HFF", 255, 255},
    {u" &h7f ", 127, 127},
    {u"&HFFFF", -1, 65535},
    {u"&H10000", {}, 65536},
    {u"&HFFFFFFFF", {}, -1},
    {u"&H0000FFFF", -1, 65535},
};

} // namespace

TEST(NumberText, ConvertsNumbersAndNothingElse) {
    for (const Row& row : kRows) {
        EXPECT_EQ(RoundedNumber<Integer>(row.Written), row.AsInteger) << Utf8(row.Written);
        EXPECT_EQ(RoundedNumber<Long>(row.Written), row.AsLong) << Utf8(row.Written);
    }
    for (const TextView tooLarge : {u"2147483648", u"-2147483649", u"9223372036854775808", u"1e999",
                                    u"&H100000000", u"1234567890123456789012345678901234567890"})
        EXPECT_EQ(RoundedNumber<Long>(tooLarge), std::nullopt) << Utf8(tooLarge);
    for (const TextView none :
         {u"",    u" ",   u"-",    u".",    u"e5", u"1e",   u"--1",  u"+-1", u"- 1",  u"1 2",   u"12px",
          u"1,5", u"inf", u"-nan", u"0x10", u"&H", u"&H-1", u"-&H1", u"&HG", u"True", u"\u0663"})
        EXPECT_EQ(RoundedNumber<Long>(none), std::nullopt) << Utf8(none);
}

TEST(NumberText, TheOtherRoundingCutsDownward) {
    EXPECT_EQ(FlooredNumber<Long>(u"12.9"), 12);
    EXPECT_EQ(FlooredNumber<Long>(u"-0.5"), -1);
    EXPECT_EQ(FlooredNumber<Long>(u"-3"), -3);
    EXPECT_EQ(FlooredNumber<Integer>(u"32767.9"), 32767);
    EXPECT_EQ(FlooredNumber<Integer>(u"-32768.1"), std::nullopt);
    EXPECT_EQ(FlooredNumber<Integer>(u"&HFFFF"), -1);
    EXPECT_EQ(FlooredNumber<Long>(u"vbred"), std::nullopt);
    EXPECT_EQ(FlooredNumber<Long>(u"2147483648"), std::nullopt);
}

TEST(NumberText, TruthIsAWordOrANumber) {
    for (const TextView yes : {u"True", u"TRUE", u" true ", u"1", u"-1", u"0.2", u"&H10", u"1e300"})
        EXPECT_EQ(TruthValue(yes), true) << Utf8(yes);
    for (const TextView no : {u"False", u"fALSE", u"0", u"-0.0", u"&H0", u" 0 "})
        EXPECT_EQ(TruthValue(no), false) << Utf8(no);
    for (const TextView neither : {u"", u"yes", u"T", u"Truely", u"on", u"1a", u"&H1FFFFFFFF"})
        EXPECT_EQ(TruthValue(neither), std::nullopt) << Utf8(neither);
}
