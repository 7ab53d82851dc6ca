// The comforts' real parts, put together for main. Where the settings file doesn't want them
// nothing is made, and each call returns at once.
#pragma once

#include <memory>
#include <optional>

#include "comforts/settings.h"
#include "platform/audio/player/audio_player.h"
#include "platform/doorway.h"
#include "platform/qt/qt_system.h"
#include "platform/qt/qt_window.h"
#include "state/velora.h"

/// What the settings file wants.
struct WantedComforts {
    ComfortSettings Settings;
    std::unique_ptr<Doorway> Door; ///< Where second starts knock; null if they aren't let in.
};

/// Reads it, before the toolkit is there. Nothing if a player that runs already has taken over the
/// command line, and this process may end.
[[nodiscard]] std::optional<WantedComforts> PrepareComforts(const Text& commandLine);

class MainComforts {
public:
    MainComforts(WantedComforts wanted, AudioPlayer& player, QtLoop& loop, QtWindow& window);
    ~MainComforts();

    /// The player that the system is to be made with: one that is listened to, or `player` itself.
    [[nodiscard]] Player& PlayerOf(AudioPlayer& player);
    /// Listens to the system, to its player and to its end. Called in place of
    /// `player.Attach(playerEvents)`.
    void Attach(Velora& velora, AudioPlayer& player, PlayerEvents& playerEvents,
                FormEvents& formEvents, QtSystem& system);
    /// As those of `Comforts`.
    void Load();
    void Begin();
    void Look();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts; ///< Null without the comforts.
};
