// The grammar of ini files, and the exact bytes of a changed one: each row is looked up and written
// to.
#include <gtest/gtest.h>

#include "platform/ini_text.h"

namespace {

using namespace std::string_view_literals;

constexpr const char* kNothing = "(nothing)";

// A file, the key `z` of its section `a`, and the file with `new` for the key's value.
constexpr std::string_view kFiles[][4] = {
    {"no bytes", "", kNothing, "[a]\r\nz=new\r\n"},
    {"a byte order mark alone", "\xEF\xBB\xBF", kNothing, "\xEF\xBB\xBF[a]\r\nz=new\r\n"},
    {"a byte order mark in front", "\xEF\xBB\xBF[a]\nz=1", "1", "\xEF\xBB\xBF[a]\nz=new"},
    {"other case and blanks", "; \xE4\n\n\t [ A ] b\n y = 2 \n\v Z\f= 1 2\t\n[c]", "1 2",
     "; \xE4\n\n\t [ A ] b\n y = 2 \nz=new\n[c]"},
    {"line ends of all kinds", "[a]\r\nx=3\ry=2\nz=1\r\nw=4", "1", "[a]\r\nx=3\ry=2\nz=new\r\nw=4"},
    {"a key twice", "[a]\nz=\nz=2\n", "", "[a]\nz=new\nz=2\n"},
    {"a section twice", "[b]\nz=3\n[A]\nz=1\n[a]\nz=4\n[C]\nz=5\n", "1",
     "[b]\nz=3\n[A]\nz=new\n[a]\nz=4\n[C]\nz=5\n"},
    {"a key in the second section of the name", "[a]\ny=1\n[a]\nz=2\n", kNothing,
     "[a]\ny=1\nz=new\n[a]\nz=2\n"},
    {"names that begin like it", "[ab]\nz=1\n[a]\nzz=2\n\nz z=3\n[aa]", kNothing,
     "[ab]\nz=1\n[a]\nzz=2\n\nz z=3\nz=new\n[aa]"},
    {"comments and lines without a key", "[a]\n; z=1\n=2\nz\n  ;z=3\nz=4;5=6\n", "4;5=6",
     "[a]\n; z=1\n=2\nz\n  ;z=3\nz=new\n"},
    {"a key above all sections", "z=0\n", kNothing, "z=0\n[a]\nz=new\n"},
    {"a header without its bracket", "[b\nx=2\n[a\nz=1\n", "1", "[b\nx=2\n[a\nz=new\n"},
    {"a header that holds a key", "[a]z=c]\n", kNothing, "[a]z=c]\nz=new\n"},
    {"a header alone", "[a]", kNothing, "[a]\r\nz=new\r\n"},
    {"a section of notes", "[a]\n; note\n[b]\nz=1\n", kNothing, "[a]\nz=new\n; note\n[b]\nz=1\n"},
    {"a last key without a line end", "[a]\nx=1", kNothing, "[a]\nx=1\nz=new\n"},
    {"a comment behind the last key", "[a]\nx=1\n; note\n\n[b]\ny=2\n", kNothing,
     "[a]\nx=1\nz=new\n; note\n\n[b]\ny=2\n"},
    {"no such section", "[b]\rx=1\r\r", kNothing, "[b]\rx=1\r\r[a]\rz=new\r"},
    {"16-bit text", "\xFF\xFE[\0a\0]\0\n\0z\0=\0"sv, kNothing,
     "\xFF\xFE[\0a\0]\0\n\0z\0=\0\n[a]\nz=new\n"sv},
};

// A line, its value without white space and one pair of quotation marks, and the line that has that
// value.
constexpr std::string_view kValues[][3] = {
    {"z= \t\v\f1 'x' 2\t\v\f ", "1 'x' 2", "z=1 'x' 2"},
    {"z=\"\t b \"", "\t b ", "z=\"\t b \""},
    {"z='\"b\"'", "\"b\"", "z=\"\"b\"\""},
    {"z=\"b'", "\"b'", "z=\"b'"},
    {"z=\"", "\"", "z=\""},
    {"z=''", "", "z="},
    {"z= ", "", "z="},
};

} // namespace

TEST(IniText, IsReadAndChangedInOnePlace) {
    for (const auto& [name, bytes, found, changed] : kFiles) {
        const IniText ini{std::string(bytes)};
        EXPECT_EQ(ini.Find(" A", "Z ").value_or(kNothing), found) << name;
        EXPECT_EQ(ini.With(" a ", " z ", "new").value_or(kNothing), changed) << name;
    }
}

TEST(IniText, AValueIsStrippedAndQuotedWhereItNeedsIt) {
    for (const auto& [line, value, rewritten] : kValues) {
        const IniText ini("[a]\n" + std::string(line));
        EXPECT_EQ(ini.Find("a", "z"), value) << line;
        EXPECT_EQ(ini.With("a", "z", value).value_or(kNothing), "[a]\n" + std::string(rewritten))
            << line;
    }
}

TEST(IniText, WhatCouldNotBeFoundAgainIsNotWritten) {
    const IniText ini("[a]\n");
    for (const std::string_view value : {"1\n[b]\ny=2", "1\r"})
        EXPECT_EQ(ini.With("a", "z", value), std::nullopt) << value;
    for (const std::string_view key : {"z=y", ";z", "[z", "z\ny"})
        EXPECT_EQ(ini.With("a", key, "1"), std::nullopt) << key;
    EXPECT_EQ(ini.With("a]b", "z", "1"), std::nullopt);
}
