// The grammar of ini files and the exact bytes of a changed one.
#include <gtest/gtest.h>

#include "platform/ini_text.h"

namespace {

std::string Found(std::string_view ini, std::string_view section, std::string_view key) {
    const IniText text{std::string(ini)};
    const auto value = text.Find(section, key);
    return value ? std::string(*value) : "(nothing)";
}

std::string Changed(std::string_view ini, std::string_view section, std::string_view key,
                    std::string_view value) {
    return IniText(std::string(ini)).With(section, key, value).value_or("(nothing)");
}

} // namespace

TEST(IniTextFind, NamesMatchWithoutCaseAndBlanksAroundThem) {
    constexpr std::string_view kIni = " [ SETTINGS ] x\n\t wIDTH  =  12 3\t\n";
    EXPECT_EQ(Found(kIni, "Settings", "Width"), "12 3");
    EXPECT_EQ(Found(kIni, " settings ", " width "), "12 3");
    EXPECT_EQ(Found(kIni, "Settings", "Widt"), "(nothing)");
    EXPECT_EQ(Found(kIni, "Setting", "Width"), "(nothing)");
}

TEST(IniTextFind, EveryLineEndCounts) {
    EXPECT_EQ(Found("[a]\r\nx=1\ry=2\nz=3", "a", "x"), "1");
    EXPECT_EQ(Found("[a]\r\nx=1\ry=2\nz=3", "a", "y"), "2");
    EXPECT_EQ(Found("[a]\r\nx=1\ry=2\nz=3", "a", "z"), "3");
}

TEST(IniTextFind, TheFirstSectionAndTheFirstKeyWin) {
    constexpr std::string_view kIni = "[a]\nx=\nx=2\n[b]\nx=3\n[A]\nx=4\ny=5\n";
    EXPECT_EQ(Found(kIni, "a", "x"), "");
    EXPECT_EQ(Found(kIni, "a", "y"), "(nothing)");
    EXPECT_EQ(Found(kIni, "b", "x"), "3");
}

TEST(IniTextFind, OnePairOfQuotationMarksGoes) {
    EXPECT_EQ(Found("[a]\nx=\" b \"", "a", "x"), " b ");
    EXPECT_EQ(Found("[a]\nx='b'", "a", "x"), "b");
    EXPECT_EQ(Found("[a]\nx=\"\"b\"\"", "a", "x"), "\"b\"");
    EXPECT_EQ(Found("[a]\nx=\"b'", "a", "x"), "\"b'");
    EXPECT_EQ(Found("[a]\nx=\"", "a", "x"), "\"");
    EXPECT_EQ(Found("[a]\nx=\"\"", "a", "x"), "");
}

TEST(IniTextFind, CommentsAndLinesWithoutAKeyArePassedOver) {
    constexpr std::string_view kIni = "x=0\n[a]\n; x=1\n=2\nx\n  ;x=3\nx=4;5\n";
    EXPECT_EQ(Found(kIni, "a", "x"), "4;5");
    EXPECT_EQ(Found(kIni, "", "x"), "(nothing)") << "keys above all sections belong to none";
}

TEST(IniTextFind, AHeaderWithoutItsBracketIsAHeaderAllTheSame) {
    EXPECT_EQ(Found("[a]\n[b\nx=1\n", "a", "x"), "(nothing)");
    EXPECT_EQ(Found("[a]\n[b\nx=1\n", "b", "x"), "1");
    EXPECT_EQ(Found("[", "", ""), "(nothing)");
    EXPECT_EQ(Found("[a]b=c]\nx=1", "a", "x"), "1");
}

TEST(IniTextFind, AByteOrderMarkDoesNotHideTheFirstSection) {
    EXPECT_EQ(Found("\xEF\xBB\xBF[a]\nx=1", "a", "x"), "1");
    EXPECT_EQ(Found("\xEF\xBB\xBF", "a", "x"), "(nothing)");
}

TEST(IniTextFind, WideTextAndBinaryGiveNothing) {
    EXPECT_EQ(Found(std::string_view("\xFF\xFE[\0a\0]\0\n\0x\0=\0", 14), "a", "x"), "(nothing)");
    EXPECT_EQ(Found(std::string_view("\0\0\0[a]\nx=1", 11), "a", "x"), "(nothing)");
    EXPECT_EQ(Found("[a]\nx=1\n\x1A", "a", "x"), "1");
}

TEST(IniTextWith, AnEmptyFileGetsItsSectionWithCarriageReturns) {
    EXPECT_EQ(Changed("", "Settings", "Count", "1"), "[Settings]\r\nCount=1\r\n");
    EXPECT_EQ(Changed("\xEF\xBB\xBF", "a", "x", "1"), "\xEF\xBB\xBF[a]\r\nx=1\r\n");
}

TEST(IniTextWith, ALineIsReplacedAndAllOthersStayByteForByte) {
    EXPECT_EQ(Changed("; one\n\n[a]\n y = 2 \n  X =  old  \nx=later\n\xE4\n", "A", "x", "new"),
              "; one\n\n[a]\n y = 2 \nx=new\nx=later\n\xE4\n");
    EXPECT_EQ(Changed("[a]\nx=old", "a", "x", "new"), "[a]\nx=new") << "no line end comes to the last line";
}

TEST(IniTextWith, ANewKeyComesBehindTheLastKeyOfItsSection) {
    EXPECT_EQ(Changed("[a]\nx=1\n; note\n\n[b]\ny=2\n", "a", "z", "3"),
              "[a]\nx=1\nz=3\n; note\n\n[b]\ny=2\n");
    EXPECT_EQ(Changed("[a]\n; note\n[b]\n", "a", "z", "3"), "[a]\nz=3\n; note\n[b]\n");
    EXPECT_EQ(Changed("[a]\nx=1", "a", "z", "3"), "[a]\nx=1\nz=3\n");
    EXPECT_EQ(Changed("[a]", "a", "z", "3"), "[a]\r\nz=3\r\n");
}

TEST(IniTextWith, ANewSectionComesAtTheEnd) {
    EXPECT_EQ(Changed("[a]\rx=1", "b", "y", "2"), "[a]\rx=1\r[b]\ry=2\r");
    EXPECT_EQ(Changed("[a]\r\nx=1\r\n\r\n", "b", "y", "2"), "[a]\r\nx=1\r\n\r\n[b]\r\ny=2\r\n");
}

TEST(IniTextWith, AValueThatAReadWouldStripIsQuoted) {
    for (const std::string_view value :
         {" x", "x\t", "\"x\"", "'x'", "\" x", "\"", "", "\"'", "x=y;z", "\"\"", " \" "}) {
        const std::string changed = Changed("[a]\nx=1\n", "a", "x", value);
        EXPECT_EQ(Found(changed, "a", "x"), value) << changed;
    }
    EXPECT_EQ(Changed("", "a", "x", "plain 'text'"), "[a]\r\nx=plain 'text'\r\n");
}

TEST(IniTextWith, WhatCouldNotBeFoundAgainIsRefused) {
    EXPECT_EQ(Changed("[a]\n", "a", "x", "1\n[b]\ny=2"), "(nothing)");
    EXPECT_EQ(Changed("[a]\n", "a", "x", "1\r"), "(nothing)");
    EXPECT_EQ(Changed("[a]\n", "a", "x=y", "1"), "(nothing)");
    EXPECT_EQ(Changed("[a]\n", "a", ";x", "1"), "(nothing)");
    EXPECT_EQ(Changed("[a]\n", "a]b", "x", "1"), "(nothing)");
    EXPECT_EQ(Changed("[a]\n", "a", "[x", "1"), "(nothing)");
}

TEST(IniText, AnObjectThatWasMovedStillFindsItsValues) {
    IniText first("[a]\nx=1");
    const IniText second = std::move(first);
    EXPECT_EQ(second.Find("a", "x"), "1");
}
