// The desktop's look, as its settings and its files tell it.
#include "platform/qt/qt_look.h"

#include <QString>
#include <gtest/gtest.h>

#include "support/temp_directory.h"

namespace {

DesktopLook LookOf(uint scheme, const char* theme, const char* font) {
    return LookOfSettings([&](const QString& space, const QString& key) -> QVariant {
        if (space == "org.freedesktop.appearance" && key == "color-scheme") return scheme;
        if (space == "org.gnome.desktop.interface" && key == "gtk-theme") return QString(theme);
        if (space == "org.gnome.desktop.interface" && key == "font-name") return QString(font);
        return {};
    });
}

TEST(QtLook, ReadsFontNames) {
    const std::optional<QFont> plain = FontOfName("Noto Sans 11");
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->family(), "Noto Sans");
    EXPECT_EQ(plain->pointSizeF(), 11);
    EXPECT_FALSE(plain->bold());

    const std::optional<QFont> styled = FontOfName("Noto Sans, Bold Italic 9.5");
    ASSERT_TRUE(styled);
    EXPECT_EQ(styled->family(), "Noto Sans");
    EXPECT_EQ(styled->pointSizeF(), 9.5);
    EXPECT_TRUE(styled->bold() && styled->italic());

    for (const char* bad : {"", " ", "11", "Noto Sans", "Noto Sans 0", "Noto Sans 1e9", "Noto Sans nan"})
        EXPECT_FALSE(FontOfName(bad)) << bad;
}

TEST(QtLook, TheColourSchemeGoesBeforeTheThemesName) {
    EXPECT_EQ(LookOf(1, "Slate", "").Dark, true);
    EXPECT_EQ(LookOf(2, "Slate-dark", "").Dark, false);
    EXPECT_EQ(LookOf(0, "Slate-dark", "").Dark, true);
    EXPECT_EQ(LookOf(0, "Slate", "").Dark, false);
    const DesktopLook none = LookOf(0, "", "");
    EXPECT_FALSE(none.Dark || none.Font);
}

TEST(QtLook, ReadsTheFilesOfTheDesktop) {
    TempDirectory home;
    const QString directory = QString::fromStdString(home.Path());
    EXPECT_FALSE(LookOfFiles(directory, true).Dark || LookOfFiles(directory, false).Dark);

    home.Put("kdeglobals", "[General]\nfont=Noto Sans,12,-1,5,50,0,0,0,0,0\n"
                           "[Colors:Window]\nBackgroundNormal=42,46,50\n");
    const DesktopLook kept = LookOfFiles(directory, true);
    EXPECT_EQ(kept.Dark, true);
    ASSERT_TRUE(kept.Font);
    EXPECT_EQ(kept.Font->family(), "Noto Sans");
    EXPECT_EQ(kept.Font->pointSizeF(), 12);

    home.Put("gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=Slate\ngtk-font-name=Cantarell, 10\n"
                                     "gtk-application-prefer-dark-theme=1\n");
    const DesktopLook other = LookOfFiles(directory, false);
    EXPECT_EQ(other.Dark, true);
    ASSERT_TRUE(other.Font);
    EXPECT_EQ(other.Font->family(), "Cantarell");
}

TEST(QtLook, DamagedFilesTellNothing) {
    TempDirectory home;
    const QString directory = QString::fromStdString(home.Path());
    for (const char* bad : {"", "[", "[General]\nfont=\n[Colors:Window]\nBackgroundNormal=1,2\n",
                            "font=,,,\n", "\x01\xff\xfe"}) {
        home.Put("kdeglobals", bad);
        const DesktopLook look = LookOfFiles(directory, true);
        EXPECT_FALSE(look.Dark || look.Font) << bad;
    }
}

} // namespace
