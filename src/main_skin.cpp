// `velora-skin`: what the player makes of a skin, told and shown to whoever draws one. Nothing of
// it needs a display or a sound server.
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <span>
#include <string>

#include "maker/check_skin.h"
#include "maker/states.h"
#include "platform/null/null_loop.h"
#include "platform/null/null_parts.h"
#include "platform/null/null_window.h"
#include "platform/paths.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_sheet.h"

namespace {

enum ExitStatus { kClean = 0, kFound = 1, kFailed = 2 };

constexpr char kUsage[] = "usage: velora-skin check FILE...\n"
                          "       velora-skin show FILE PICTURE.png [STATE...]\n";

// The platform of a player that nobody sees or hears, but with real pictures.
struct Unseen {
    Journal Notes;
    NullWindow Window{Notes};
    NullDialogs Dialogs{Notes};
    NullLoop Loop;
    QtPictures Pictures;
    NullSystem System{Notes};
    NullPlayer Player{Notes};
    NullScope Scope{Notes};
    PlatformParts Parts{Window, Dialogs, Loop, Pictures, System, Player, Scope};
};

int Fail(const std::string& file, const std::string& words) {
    std::fprintf(stderr, "velora-skin: %s: %s\n", file.c_str(), words.c_str());
    return kFailed;
}

int Check(Unseen& unseen, std::span<char* const> files) {
    int status = kClean;
    std::set<std::string> told; // Skins can share a shape file.
    for (const std::string file : files) {
        const auto findings = CheckSkin(unseen.Parts, InkOf, PathText(file));
        if (!findings) {
            status = Fail(file, "can't be read");
            continue;
        }
        for (const Finding& finding : *findings)
            if (const std::string line = LineOf(finding); told.insert(line).second)
                std::printf("%s\n", line.c_str());
        if (!findings->empty()) status = std::max<int>(status, kFound);
    }
    return status;
}

int Show(Unseen& unseen, const std::string& file, const std::string& picture,
         std::span<char* const> states) {
    if (!FileExists(PathText(file))) return Fail(file, "can't be read");
    std::vector<std::string_view> names(states.begin(), states.end());
    const std::vector<std::string_view> all = StateNames();
    std::vector<NamedScene> scenes;
    for (const std::string_view name : names.empty() ? all : names) {
        if (std::ranges::find(all, name) == all.end()) {
            std::string known;
            for (const std::string_view one : all)
                known += " " + std::string(one);
            return Fail(std::string(name), "is no state; there are" + known);
        }
        if (auto scene = SceneInState(unseen.Parts, PathText(file), name))
            scenes.push_back({TextFromBytes(name), std::move(*scene)});
        else if (!names.empty())
            return Fail(file, "has no state " + std::string(name));
    }
    if (scenes.empty()) return Fail(file, "is no skin that is shown");
    if (!SavePicture(scenes, picture)) return Fail(picture, "can't be written");
    return kClean;
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char* const> given(arguments + 1, arguments + count);
    const std::string_view command = given.empty() ? "" : given[0];
    if (command == "--help" || command == "-h") {
        std::fputs(kUsage, stdout);
        return kClean;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // What the toolkit misses of a desktop is nothing to the maker.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int toolkitCount = 1;
    const QGuiApplication application(toolkitCount, arguments);
    const auto unseen = std::make_unique<Unseen>();
    if (command == "check" && given.size() >= 2) return Check(*unseen, given.subspan(1));
    if (command == "show" && given.size() >= 3)
        return Show(*unseen, given[1], given[2], given.subspan(3));
    std::fputs(kUsage, stderr);
    return kFailed;
}
