// What a key of an ini file reads as, and that what is written can be read.
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

#include "platform/profile_strings.h"
#include "support/temp_directory.h"

namespace {

std::string ValueOf(std::string_view written) {
    const TempDirectory directory;
    const Text file = directory.Put("f.ini", "[a]\r\nx=" + std::string(written) + "\r\n");
    return Utf8(ReadProfileString(file, u"a", u"x", u"(default)"));
}

} // namespace

TEST(ReadProfileString, MissingAndEmptyGiveTheDefaultHoweverLong) {
    const TempDirectory directory;
    const Text file = directory.Put("f.ini", "[a]\nempty=\nquotes=\"\"\nblanks=   \nnoequals\n");
    const Text longDefault(1000, u'd');
    for (const TextView key : {u"empty", u"quotes", u"blanks", u"noequals", u"missing"})
        EXPECT_EQ(ReadProfileString(file, u"a", key, longDefault), longDefault) << Utf8(key);
    EXPECT_EQ(ReadProfileString(file, u"b", u"empty", u"d"), u"d");
    EXPECT_EQ(ReadProfileString(directory.PathText("none.ini"), u"a", u"x", u"d"), u"d");
    EXPECT_EQ(ReadProfileString(directory.PathText(), u"a", u"x", u"d"), u"d");
    ASSERT_EQ(mkfifo(directory.Path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(ReadProfileString(directory.PathText("fifo"), u"a", u"x", u"d"), u"d") << "and doesn't wait";
    EXPECT_EQ(ReadProfileString(u"", u"a", u"x", u"d"), u"d");
    EXPECT_EQ(directory.Names(), (std::vector<std::string>{"f.ini", "fifo"})) << "a read creates nothing";
}

TEST(ReadProfileString, AHugeFileIsNotRead) {
    const TempDirectory directory;
    const Text file = directory.Put("f.ini", "[a]\nx=1\n");
    std::filesystem::resize_file(directory.Path("f.ini"), 1u << 30);
    EXPECT_EQ(ReadProfileString(file, u"a", u"x", u"d"), u"d");
    std::filesystem::resize_file(directory.Path("f.ini"), kMostIniBytes);
    EXPECT_EQ(ReadProfileString(file, u"a", u"x", u"d"), u"1");
}

TEST(ReadProfileString, TwoHundredAndFiftyFourBytesComeBackWhole) {
    const std::string whole(254, 'w');
    EXPECT_EQ(ValueOf(whole), whole);
    EXPECT_EQ(ValueOf(whole + "xyz"), whole);
    EXPECT_EQ(ValueOf(std::string(1 << 20, 'w')), whole);
}

TEST(ReadProfileString, NoLetterIsCutInHalf) {
    const std::string start(253, 'w');
    EXPECT_EQ(ValueOf(start + "\xC3\xA4"), start) << "two bytes, of which one would fit";
    EXPECT_EQ(ValueOf(start.substr(1) + "\xF0\x9F\x8E\xB5 and more"), start.substr(1));
    EXPECT_EQ(ValueOf(start + "\xE4 and more"), start + "\xC3\xA4") << "a letter of one byte stays";
}

TEST(ReadProfileString, EachValueHasItsOwnEncoding) {
    const TempDirectory directory;
    const Text file = directory.Put("f.ini", "\xEF\xBB\xBF[a]\nold=M\xFCnchen \x80\nnew=M\xC3\xBCnchen\n");
    EXPECT_EQ(ReadProfileString(file, u"a", u"old", u""), u"M\u00FCnchen \u20AC");
    EXPECT_EQ(ReadProfileString(file, u"a", u"new", u""), u"M\u00FCnchen");
}

TEST(ReadProfileString, AValueEndsAtItsFirstNul) {
    EXPECT_EQ(ValueOf(std::string_view("ab\0cd", 5)), "ab");
    EXPECT_EQ(ValueOf(std::string_view("\0cd", 3)), "") << "bytes came, so it isn't the default";
}

TEST(ProfileReader, SeesEveryChangeOfTheFile) {
    const TempDirectory directory;
    ProfileReader reader(directory.PathText("f.ini"));
    EXPECT_EQ(reader.Read(u"a", u"x", u"d"), u"d");
    directory.Put("f.ini", "[a]\nx=1\n");
    EXPECT_EQ(reader.Read(u"a", u"x", u"d"), u"1");
    WriteProfileString(directory.PathText("f.ini"), u"a", u"x", u"2");
    EXPECT_EQ(reader.Read(u"a", u"x", u"d"), u"2");
    directory.Put("f.ini", "[a]\nx=33\n");
    EXPECT_EQ(reader.Read(u"a", u"x", u"d"), u"33");
    std::filesystem::remove(directory.Path("f.ini"));
    EXPECT_EQ(reader.Read(u"a", u"x", u"d"), u"d");
}

TEST(ProfileReader, ANumberThatDoesNotConvertLeavesTheField) {
    const TempDirectory directory;
    ProfileReader reader(directory.Put("f.ini", "[a]\nword=abc\nwide=40000\nyes=TRUE\nno=0\n"));
    Integer number = 7;
    ReadProfileNumber(reader, u"a", u"word", u"5", number);
    ReadProfileNumber(reader, u"a", u"wide", u"5", number);
    ReadProfileNumber(reader, u"a", u"missing", u"", number);
    EXPECT_EQ(number, 7);
    ReadProfileNumber(reader, u"a", u"missing", u"5", number);
    EXPECT_EQ(number, 5);
    Boolean truth;
    ReadProfileBoolean(reader, u"a", u"yes", u"", truth);
    EXPECT_EQ(truth.Value, -1);
    ReadProfileBoolean(reader, u"a", u"word", u"", truth);
    EXPECT_EQ(truth.Value, -1);
    ReadProfileBoolean(reader, u"a", u"no", u"", truth);
    EXPECT_EQ(truth.Value, 0);
}

TEST(WriteProfileString, WhatIsWrittenIsReadAgain) {
    const TempDirectory directory;
    const Text file = directory.PathText("new.ini");
    for (const TextView value : {u"plain", u" blanks ", u"\"quoted\"", u"M\u00FCnchen \u20AC",
                                 u"\uF7FF\uF05C", u"a=b;c", u"'", u"\U0001F3B5"}) {
        WriteProfileString(file, u"1", u"Name", value);
        EXPECT_EQ(ReadProfileString(file, u"1", u"Name", u"(default)"), value);
        EXPECT_TRUE(ReadsBackWhole(value));
    }
}

TEST(WriteProfileString, GoesToTheFileThatAReadFindsWhateverItsCase) {
    const TempDirectory directory;
    directory.Put("Dir/Lists.INI", "[a]\nx=1\n");
    WriteProfileString(directory.PathText("dir/lists.ini"), u"a", u"x", u"2");
    EXPECT_EQ(directory.Get("Dir/Lists.INI"), "[a]\nx=2\n");
    EXPECT_EQ(ReadProfileString(directory.PathText("DIR/lists.ini"), u"a", u"x", u""), u"2");
    EXPECT_EQ(directory.Names(), std::vector<std::string>{"Dir"});
}

TEST(WriteProfileString, ALineEndInAValueWritesNothing) {
    const TempDirectory directory;
    const Text file = directory.Put("f.ini", "[a]\nx=1\n");
    WriteProfileString(file, u"a", u"x", u"2\n[Settings]\nCount=500");
    EXPECT_EQ(directory.Get("f.ini"), "[a]\nx=1\n");
    EXPECT_FALSE(ReadsBackWhole(u"a\nb"));
    EXPECT_FALSE(ReadsBackWhole(TextView(u"a\0b", 3)));
}

TEST(ReadsBackWhole, CountsBytesAndNotLetters) {
    EXPECT_TRUE(ReadsBackWhole(Text(254, u'a')));
    EXPECT_FALSE(ReadsBackWhole(Text(255, u'a')));
    EXPECT_TRUE(ReadsBackWhole(Text(127, u'\u00E4')));
    EXPECT_FALSE(ReadsBackWhole(Text(128, u'\u00E4')));
}
