// Apart from main, so that what is there for everybody can be seen by itself.
#include "main_comforts.h"

#include <QByteArray>
#include <QString>
#include <utility>

#include "comforts/comforts.h"
#include "platform/program_places.h"
#include "platform/qt/qt_extras.h"
#include "platform/qt/qt_media_bus.h"
#include "shell/startup.h"

namespace {

// Before the application object, which looks at this once. What the user's own environment says
// counts as well.
void ScaleBy(Integer scale) {
    if (scale < 2) return;
    constexpr char kFactor[] = "QT_SCALE_FACTOR";
    const double given = qEnvironmentVariable(kFactor, QStringLiteral("1")).toDouble();
    qputenv(kFactor, QByteArray::number(scale * (given > 0 ? given : 1)));
}

} // namespace

std::optional<WantedComforts> PrepareComforts(const Text& commandLine) {
    WantedComforts wanted{ReadComforts(IniPlace(ProgramDirectory(), u"\\velsettings.ini")),
                          nullptr};
    if (!wanted.Settings.Enabled) return wanted;
    const std::optional<std::string> place = DoorwayPath();
    if (wanted.Settings.OneWindow && place) {
        if (HandOver(*place, HandoverMessage(commandLine))) return std::nullopt;
        // At once: whoever is started in the next moment has to find it.
        wanted.Door = std::make_unique<Doorway>(*place);
    }
    ScaleBy(wanted.Settings.Scale);
    return wanted;
}

struct MainComforts::Parts {
    Parts(WantedComforts wanted, Player& player, QtLoop& loop, QtWindow& window)
        : Settings(wanted.Settings), Ear(player, loop), Bus(loop),
          Extras(window, loop, std::move(wanted.Door)) {}

    ComfortSettings Settings;
    PlayerEar Ear; ///< Stands between the system and its player.
    QtMediaBus Bus;
    QtExtras Extras;
    std::optional<Comforts> All;
};

MainComforts::MainComforts(WantedComforts wanted, AudioPlayer& player, QtLoop& loop,
                           QtWindow& window) {
    if (wanted.Settings.Enabled)
        m_parts = std::make_unique<Parts>(std::move(wanted), player, loop, window);
}

MainComforts::~MainComforts() = default;

Player& MainComforts::PlayerOf(AudioPlayer& player) {
    return m_parts ? static_cast<Player&>(m_parts->Ear) : player;
}

void MainComforts::Attach(Velora& velora, AudioPlayer& player, PlayerEvents& playerEvents,
                          FormEvents& formEvents, QtSystem& system) {
    if (!m_parts) return player.Attach(playerEvents);
    m_parts->Ear.Attach(playerEvents);
    player.Attach(m_parts->Ear);
    Comforts& all = m_parts->All.emplace(velora, m_parts->Ear, m_parts->Settings, m_parts->Bus,
                                         m_parts->Extras);
    all.StartFile = [&velora](TextView commandLine) { StartFromCommandLine(velora, commandLine); };
    all.Quit = [&velora, &formEvents] { velora.Loop.Post([&] { formEvents.OnClose(); }); };
    system.BeforeEnd = [&all] { all.End(); };
}

void MainComforts::Load() {
    if (m_parts) m_parts->All->Load();
}

void MainComforts::Begin() {
    if (m_parts) m_parts->All->Begin();
}

void MainComforts::Look() {
    if (m_parts) m_parts->All->Look();
}
