// What may wait for the user runs as a task of its own, never inside the queue: the media controls
// have to work while a dialog is open.
#include "comforts/comforts.h"

#include "comforts/commands.h"
#include "comforts/keys.h"
#include "comforts/media_address.h"
#include "comforts/menu.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "playback/navigation.h"
#include "playback/transport.h"
#include "playback/volume.h"
#include "state/file_dialogs.h"
#include "state/messages.h"

namespace {

constexpr TextView kSettingsName = u"\\velsettings.ini";
constexpr Long kKeySeekMs = 5000;
// A name can be as long as a file; nobody reads more of it.
constexpr std::size_t kMostRowLetters = 300;

} // namespace

Comforts::Comforts(Velora& velora, PlayerEar& ear, const ComfortSettings& settings, MediaBus& bus,
                   WindowExtras& extras)
    : m_context{velora, ear, settings, CommandQueue(velora.Loop)}, m_extras(extras),
      m_way(m_context), m_desk(m_context, m_way, bus) {
    velora.Listeners.MenuChosen = [this](std::string_view name) { OnMenu(name); };
    m_desk.Raise = [this] { m_extras.Raise(); };
    m_desk.Quit = [this] { Quit(); };
    m_desk.OrderChanged = [this] {
        MarkComforts(m_context.State.frmMain.Menu, m_context.Settings);
    };
}

void Comforts::Load() {
    Velora& velora = m_context.State;
    Form& form = velora.frmMain;
    if (m_context.Settings.Remember) ShowSkin(velora, m_context.Settings.Skin);
    m_skin = velora.CurrentSkin;
    ShowTrueVolume();
    const bool stopped = velora.PlayerState == PlayerState::Stopped;
    SetPicture(form.picPlay, (stopped ? form.picPlay1 : form.picStop1).Picture);
    AppendComforts(form.Menu, m_context.Settings);
    m_clock.SetWritten(Now());
    m_way.Look();
}

void Comforts::Begin() {
    m_extras.Listen(*this);
    Apply();
}

void Comforts::Apply() {
    m_extras.OpenDoor(m_context.Settings.OneWindow);
    m_desk.Show(m_context.Settings.MediaKeys);
}

void Comforts::Look() {
    m_way.Look();
    m_desk.Look();
    if (const Integer skin = m_context.State.CurrentSkin; std::exchange(m_skin, skin) != skin)
        ShowTrueVolume();
    if (m_context.Settings.Remember) LookForChanges();
}

// A layout shows the lowest step, whatever is heard.
void Comforts::ShowTrueVolume() {
    Form& form = m_context.State.frmMain;
    if (form.lCurVol != 0) ShowVolumeStep(form, StepNearest(m_context.Ear.Notes().VolumePercent));
}

Remembered Comforts::Now() const {
    return {m_context.Ear.Notes().VolumePercent, m_context.State.CurrentSkin};
}

void Comforts::LookForChanges() {
    if (m_clock.Note(Now(), m_context.State.Loop.NowMs()))
        m_context.State.Loop.PostIn(RememberClock::kRestMs, [this] { WriteWhenDue(); });
}

void Comforts::WriteWhenDue() {
    const std::optional<std::int64_t> leftMs = m_clock.DueIn(m_context.State.Loop.NowMs());
    if (!leftMs) return;
    if (*leftMs > 0) return m_context.State.Loop.PostIn(*leftMs, [this] { WriteWhenDue(); });
    WriteChanges();
}

void Comforts::WriteChanges() {
    if (m_clock.IsWritten() || !m_context.Settings.Remember) return;
    m_clock.SetWritten(Now());
    Write(StringsToRemember(m_context.State, Now()));
}

void Comforts::End() {
    m_extras.OpenDoor(false);
    WriteChanges();
}

void Comforts::Write(const std::vector<ProfileString>& strings) {
    const System& system = m_context.State.System;
    const Text own = system.OwnIniFile(Text(kSettingsName));
    // The user's own place for the file is made when something is to be written there.
    MakeDirectory(TextView(own).substr(0, own.size() - kSettingsName.size() + 1));
    [[maybe_unused]] const bool isWritten = WriteProfileStrings(
        m_context.State.Loop, own, [&](const IniText&) { return strings; },
        system.IniFile(Text(kSettingsName)));
}

void Comforts::OnKey(Key key, bool isRepeated) {
    if (!m_context.Settings.Keys) return;
    Velora& velora = m_context.State;
    CommandQueue& queue = m_context.Queue;
    switch (CommandOfKey(key, isRepeated, m_context.Settings.Jump)) {
    case KeyCommand::None:
        return;
    case KeyCommand::Pause:
        return queue.Add([&] {
            if (velora.PlayerState == PlayerState::Paused)
                GoOnWithTrack(m_context);
            else
                PauseTrack(m_context);
        });
    case KeyCommand::PlayOrStop:
        return PlayOrStop();
    case KeyCommand::SecondsBack:
        return queue.Add([&] { SeekInTrack(m_context, -kKeySeekMs); });
    case KeyCommand::SecondsOn:
        return queue.Add([&] { SeekInTrack(m_context, kKeySeekMs); });
    case KeyCommand::Louder:
        return StepVolume(m_context, 1);
    case KeyCommand::Softer:
        return StepVolume(m_context, -1);
    case KeyCommand::Previous:
        return queue.Add([&] { PreviousTrack(velora); });
    case KeyCommand::Next:
        return queue.Add([&] { NextTrack(velora); });
    case KeyCommand::Open:
        return SelectMediaFile(velora);
    case KeyCommand::Jump:
        return Jump();
    case KeyCommand::ShowKeys:
        return ShowMessage(velora, ListOfKeys(m_context.Settings.Jump));
    }
}

void Comforts::PlayOrStop() {
    const bool stopped = m_context.State.PlayerState == PlayerState::Stopped;
    if (!stopped || IsInTail(m_context))
        m_context.Queue.Add([this] { StopHeardTrack(m_context); });
    else if (m_way.Playable() == 0)
        SelectMediaFile(m_context.State);
    else
        m_context.Queue.Add([this] { PlayTrack(m_context, m_way); });
}

void Comforts::OnDrop(const std::vector<std::string>& addresses) {
    std::vector<Text> paths;
    for (const std::string& address : addresses)
        if (std::optional<Text> path = PathOfAddress(address)) paths.push_back(std::move(*path));
    StartFirst(EnterPaths(m_context.State, paths));
}

void Comforts::StartFirst(const EnteredFiles& entered) {
    StartTrack(m_context.State, entered.First);
    if (entered.IsFull)
        ShowMessage(m_context.State, u"Media Limit reached");
    else if (!entered.IsKnown)
        ShowMessage(m_context.State, u"That file format is not supported by Velora");
}

void Comforts::OnSecondStart(const Text& commandLine) {
    m_extras.Raise();
    StartFile(commandLine);
}

void Comforts::OnMenu(std::string_view name) {
    const MenuChoice choice = ChoiceOf(name);
    switch (choice.Command) {
    case MenuCommand::None:
        return;
    case MenuCommand::Open:
        return SelectMediaFile(m_context.State);
    case MenuCommand::Jump:
        return Jump();
    case MenuCommand::Playlist:
        return OpenPlaylist();
    case MenuCommand::Switch:
        return Switch(*choice.Comfort);
    case MenuCommand::Scale:
        return SetScale(choice.Scale);
    }
}

void Comforts::OpenPlaylist() {
    Velora& velora = m_context.State;
    const Text file = OpenFileDialog(velora, velora.PlaylistFilter, u"Select Playlist ...",
                                     velora.System.CurrentDirectory());
    if (!file.empty()) StartFirst(EnterPaths(velora, {file}));
}

void Comforts::Jump() {
    Velora& velora = m_context.State;
    std::vector<Text> rows;
    for (Integer entry = 1; entry <= velora.Count; ++entry)
        rows.emplace_back(StartOf(velora.MediaList[entry].File, kMostRowLetters));
    ForgetCapture(velora.Capture);
    const std::size_t row = m_extras.ChooseRow(rows, static_cast<std::size_t>(velora.CurrentTrack));
    StartTrack(velora, static_cast<Integer>(row));
}

void Comforts::Switch(const ComfortRow& comfort) {
    const bool on = !(m_context.Settings.*comfort.Field);
    if (comfort.Field == &ComfortSettings::Shuffle)
        m_way.SetShuffle(on);
    else
        m_context.Settings.*comfort.Field = on;
    MarkComforts(m_context.State.frmMain.Menu, m_context.Settings);
    Apply();
    Write({{Text(kComfortSection), Text(comfort.Key), Text(TruthWord(on))}});
}

void Comforts::SetScale(Integer scale) {
    m_context.Settings.Scale = scale;
    MarkComforts(m_context.State.frmMain.Menu, m_context.Settings);
    Write({{Text(kComfortSection), u"Scale", Decimal(scale)}});
}
