// Puts the real parts together and runs the loop.
#include <QApplication>
#include <QLoggingCategory>
#include <QPixmapCache>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "main_comforts.h"
#include "platform/audio/click/click_sound.h"
#include "platform/audio/player/audio_player.h"
#include "platform/audio/scope/audio_scope.h"
#include "platform/program_places.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_icon.h"
#include "platform/qt/qt_loop.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_signals.h"
#include "platform/qt/qt_system.h"
#include "platform/qt/qt_window.h"
#include "playback/player_events.h"
#include "shell/handlers.h"
#include "shell/startup.h"
#include "state/accessible.h"
#include "state/velora.h"

namespace {

// A dialog's icons, while it is open.
constexpr int kIconCacheKb = 256;

// What has to be settled before the application object exists.
void PrepareToolkit() {
    // A sound server that goes away in the middle of a message must not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    // Shared memory shows a small window sooner and with less of it than a graphics library would.
    // The toolkit knows no such library by that name, which is the point, and would say so.
    setenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "shm", 0);
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
    // With memory shared with the X server each frame of the spectrum waits for the server to have
    // taken the last one: two wake-ups more than sending its few kilobytes.
    setenv("QT_XCB_NO_MITSHM", "1", 0);
    // The toolkit's own event loop wakes more cheaply than glib's, and nothing here needs that one.
    setenv("QT_NO_GLIB", "1", 0);
    QApplication::setDesktopSettingsAware(false);
}

void PrepareApplication() {
    QApplication::setQuitOnLastWindowClosed(false);
    // The volume compares positions exactly, so no motion may be merged away. Set before the
    // application object exists, this would be lost.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QGuiApplication::setDesktopFileName(QStringLiteral("velora"));
    // Each dialog draws its icons anew, under names of its own; by default 10 MB of them would pile
    // up.
    QPixmapCache::setCacheLimit(kIconCacheKb);
}

// The state, and the scope that draws into its form: each knows the other.
struct Logic {
    Logic(QtWindow& window, QtDialogs& dialogs, QtLoop& loop, QtPictures& pictures,
          QtSystem& system, Player& player, SampleRing& ring)
        : State({window, dialogs, loop, pictures, system, player, Scope}),
          Scope(ring, State.frmMain.VFmp3scope1.Bars) {}

    Velora State;
    AudioScope Scope;
};

// A press from a screen reader, through the same door as the mouse's.
// While a dialog blocks the window it is for nobody, as the mouse's would be.
void PressAt(const QtWindow& window, FormHandlers& handlers, int xPx, int yPx) {
    if (window.IsBlocked()) return;
    handlers.OnPointer({PointerKind::Press, xPx, yPx, kLeftButton, kLeftButton, 0});
    handlers.OnPointer({PointerKind::Release, xPx, yPx, kLeftButton, kNoButton, 0});
}

void LetScreenReadersIn(QtWindow& window, QtLoop& loop, Velora& velora, FormHandlers& handlers) {
    window.Accessibility().Attach({[&] { return AccessibleControls(velora); },
                                   [&](int xPx, int yPx) {
                                       loop.Post(
                                           [&, xPx, yPx] { PressAt(window, handlers, xPx, yPx); });
                                   }});
}

} // namespace

int main(int count, char** arguments) {
    const Text commandLine = CommandLineText(
        std::vector<std::string>(arguments + 1, arguments + count), ProcessDirectory());
    std::optional<WantedComforts> wanted = PrepareComforts(commandLine);
    if (!wanted) return 0;
    PrepareToolkit();

    QtLoop loop;
    AudioPlayer player(loop);

    // The toolkit takes no argument away from the command line, since it sees none.
    int toolkitCount = 1;
    QApplication application(toolkitCount, arguments);
    // The way to the sound begins beside the window, but no thread may run while the application
    // object sets locale and environment, which others read without a lock.
    if (!commandLine.empty()) player.Prepare();
    PrepareApplication();

    QtWindow window(loop);
    QtDialogs dialogs(window);
    QtPictures pictures;
    ClickSound click;
    QtSystem system{commandLine, [&](const Text& path) { return click.PlayAndWait(path); }};
    MainComforts comforts(std::move(*wanted), player, loop, window);
    Logic logic(window, dialogs, loop, pictures, system, comforts.PlayerOf(player), player.Ring());
    Velora& velora = logic.State;
    FormHandlers formHandlers(velora);
    PlayerHandlers playerHandlers(velora);

    system.Attach(window);
    comforts.Attach(velora, player, playerHandlers, formHandlers, system);
    window.Attach(velora.frmMain, formHandlers,
                  [&](bool visible, bool scope) { player.SetVisibility(visible, scope); });
    loop.Attach(velora.frmMain, formHandlers, [&] {
        comforts.Look();
        window.ShowChanges();
    });
    LetScreenReadersIn(window, loop, velora, formHandlers);
    if (!WatchEndSignals([&] { formHandlers.OnClose(); })) return 1;

    Form_Load(velora);
    comforts.Load();
    bool isPainted = false;
    window.AfterPaint = [&](const QRegion&) {
        if (std::exchange(isPainted, true)) return;
        loop.Post([&] {
            ShowProgramIcon();
            click.Prepare(system.ApplicationDirectory() + u"\\click.wav");
            comforts.Begin();
        });
    };
    window.ShowFirst();
    loop.Run();
    system.EndProcess();
}
