// The desktop's look, as its portal, its settings and its files tell it.
#include "platform/qt/qt_look.h"

#include "qt_fixture.h"
#include "support/temp_directory.h"

namespace {

std::string Described(const std::optional<QFont>& font) {
    if (!font) return "none";
    return font->family().toStdString() + "|" + QString::number(font->pointSizeF()).toStdString() +
           "|" + std::to_string(font->weight()) + (font->italic() ? " italic" : "");
}

std::string Described(const DesktopLook& look) {
    const std::string colours = !look.Dark ? "?" : *look.Dark ? "dark" : "light";
    return colours + " " + Described(look.Font);
}

} // namespace

TEST(QtLook, ReadsFontNames) {
    const std::pair<const char*, const char*> rows[] = {
        {"Noto Sans 11", "Noto Sans|11|400"},
        {"Noto Sans, Bold Italic 9.5", "Noto Sans|9.5|700 italic"},
        {"Noto OBLIQUE 1", "Noto|1|400 italic"},
        {"Noto Sans Medium Regular 200", "Noto Sans|200|500"},
        {"Bold 9", "Bold|9|400"},
        {"Noto  Bold  Sans 9", "Noto Bold Sans|9|400"},
        {"Noto Sans 0.9", "none"},
        {"Noto Sans 200.5", "none"},
        {"Noto Sans", "none"},
        {"11", "none"},
    };
    for (const auto& [name, font] : rows)
        EXPECT_EQ(Described(FontOfName(name)), font) << name;
}

TEST(QtLook, TheColourSchemeGoesBeforeTheThemesName) {
    const struct {
        uint Scheme;
        const char *Theme, *Font, *Look;
    } rows[] = {{1, "Slate", "Noto 9", "dark Noto|9|400"},
                {2, "Slate-dark", "", "light none"},
                {0, "Slate-Dark", "", "dark none"},
                {0, "", "", "? none"}};
    for (const auto& row : rows)
        EXPECT_EQ(
            Described(LookOfSettings([&](const QString& space, const QString& key) -> QVariant {
                if (space == "org.freedesktop.appearance" && key == "color-scheme")
                    return row.Scheme;
                if (space != "org.gnome.desktop.interface") return {};
                return key == "gtk-theme" ? row.Theme : key == "font-name" ? row.Font : QVariant();
            })),
            row.Look);
}

TEST(QtLook, ReadsTheFilesOfTheDesktop) {
    TempDirectory home;
    const QString directory = QString::fromStdString(home.Path());
    const struct {
        bool Kde;
        const char *Content, *Look;
    } rows[] = {
        {true,
         "[General]\nfont=Noto Sans,12,-1,5,50,0,0,0,0,0\n"
         "[Colors:Window]\nBackgroundNormal=42,46,50\n",
         "dark Noto Sans|12|400"},
        {true, "[Colors:Window]\nBackgroundNormal=128,128,128\n", "light none"},
        {true, "[Colors:Window]\nBackgroundNormal=127,127,127,9\n", "dark none"},
        {true, "[Colors:Window]\nBackgroundNormal=255,1,1\n", "light none"},
        {true, "[Colors:Window]\nBackgroundNormal=1,255,1\n", "light none"},
        {true, "[Colors:Window]\nBackgroundNormal=1,1,255\n", "light none"},
        {true, "[General]\nfont=Noto Sans,1,-1,5,50,0,0,0,0,0\n", "? Noto Sans|1|400"},
        {true, "[General]\nfont=Noto Sans,-1,12,5,50,0,0,0,0,0\n", "? none"},
        {false, "[Settings]\ngtk-theme-name=Slate\ngtk-font-name=Cantarell, 10\n",
         "light Cantarell|10|400"},
        {false, "[Settings]\ngtk-application-prefer-dark-theme=1\ngtk-theme-name=S\n", "dark none"},
        {false, "[Settings]\ngtk-application-prefer-dark-theme=0\ngtk-theme-name=-dark",
         "dark none"},
    };
    for (const auto& row : rows) {
        home.Put(row.Kde ? "kdeglobals" : "gtk-3.0/settings.ini", row.Content);
        EXPECT_EQ(Described(LookOfFiles(directory, row.Kde)), row.Look) << row.Content;
    }
}

TEST(QtLook, FollowsTheFilesWhereNoPortalTellsMore) {
    const TempDirectory home;
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(home.Path()));
    const QPalette light = QApplication::palette(), tips = QToolTip::palette();
    const auto shown = [](const QPalette& palette) {
        std::string colours;
        for (int role = 0; role <= QPalette::PlaceholderText; ++role)
            for (const auto group : {QPalette::Active, QPalette::Disabled})
                colours += palette.color(group, QPalette::ColorRole(role)).name().toStdString();
        return colours;
    };
    QtLook look;
    home.Put("gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=S-dark\ngtk-font-name=Sans 12\n");
    look.Follow();
    EXPECT_EQ(shown(QApplication::palette()),
              "#eeeeee#808080#3a3a3a#3a3a3a#575757#575757#484848#484848#1d1d1d#1d1d1d#272727#272727"
              "#eeeeee#808080#ffffff#ffffff#eeeeee#808080#202020#202020#2d2d2d#2d2d2d#000000#000000"
              "#3070b0#505050#ffffff#ffffff#6ab0f0#6ab0f0#ff00ff#ff00ff#282828#282828#000000#000000"
              "#202020#202020#eeeeee#808080#808080#808080");
    EXPECT_EQ(QToolTip::palette(), QApplication::palette());
    EXPECT_EQ(Described(QApplication::font()), "Sans|12|400");
    qputenv("XDG_CURRENT_DESKTOP", "X:KDE");
    home.Put("kdeglobals", "font=Mono,13,-1,5,50,0,0,0,0,0\n");
    look.Follow();
    EXPECT_EQ(shown(QApplication::palette()), shown(light));
    EXPECT_EQ(shown(QToolTip::palette()), shown(tips));
    EXPECT_EQ(Described(QApplication::font()), "Mono|13|400");
    qunsetenv("XDG_CURRENT_DESKTOP");
}
