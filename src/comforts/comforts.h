// The comforts, put together. Made only where the settings file wants them; else nothing of this
// floor exists.
#pragma once

#include <utility>

#include "comforts/enter_files.h"
#include "comforts/list_way.h"
#include "comforts/media_desk.h"
#include "comforts/remember.h"
#include "platform/window_extras.h"

/// All of them. Stays as long as the system that it listens to.
class Comforts : public ExtraEvents {
public:
    /// `ear` has to be the player that `velora` was made with.
    Comforts(Velora& velora, PlayerEar& ear, const ComfortSettings& settings, MediaBus& bus,
             WindowExtras& extras);

    /// Behind start-up, before the window shows: the skin of the last run, the menu, and buttons
    /// that show how things are.
    void Load();
    /// When the window has been painted for the first time: the bus, the keys, the door.
    void Begin();
    /// Sees what has changed. Called before the window shows changes.
    void Look();
    /// The program ends: what is to be remembered is written.
    void End();

    /// Enters and starts the file of another start's command line.
    std::function<void(TextView commandLine)> StartFile;
    /// Ends the program as the window's close box does.
    std::function<void()> Quit;

    void OnKey(Key key, bool isRepeated) override;
    [[nodiscard]] bool TakesDrops() const override { return m_context.Settings.Drop; }
    void OnDrop(const std::vector<std::string>& addresses) override;
    void OnSecondStart(const Text& commandLine) override;

private:
    void OnMenu(std::string_view name);
    void Switch(const ComfortRow& comfort);
    void SetScale(Integer scale);
    void Apply();
    void OpenPlaylist();
    void Jump();
    void StartFirst(const EnteredFiles& entered);
    void PlayOrStop();
    void ShowTrueVolume();
    void LookForChanges();
    void WriteWhenDue();
    void WriteChanges();
    void Write(const std::vector<ProfileString>& strings);
    [[nodiscard]] Remembered Now() const;

    ComfortContext m_context;
    WindowExtras& m_extras;
    ListWay m_way;
    MediaDesk m_desk;
    RememberClock m_clock;
    Integer m_skin = 0; ///< The slot that `Look` has seen.
};
