// The words of a use, and the facts of the form.
#include "support/use.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "display/progress.h"
#include "platform/paths.h"
#include "playback/navigation.h"
#include "shell/startup.h"

namespace {

const char* const kStates[] = {"Stopped", "Playing", "Paused", "SeekingForward", "SeekingBackward"};

// How many facts are told in front of what was asked: the boxes' pictures and the capture.
constexpr std::size_t kFirstFacts = std::size(Stage::kButtons) + 2;

} // namespace

Use::Use(int tracks) {
    for (int track = 1; track <= tracks; ++track)
        AddEntry(u"", Decimal(track) + u"_x.mp3");
    velora.CurrentSkin = 2;
    for (Integer step = 1; step <= kVolumeSteps; ++step) {
        velora.Skins[2].VolumeY[step] = static_cast<Integer>(kTwipsPerPixel * (90 - 10 * step));
        SetPicture(form.picVolumeArray[step], std::make_shared<LoadedPicture>(20, 100));
    }
    form.lCurVol = 1;
    ResetDisplay(velora);
    machine.WhileSound = [this] {
        for (const Figure& figure : window.Shown.Figures)
            if (figure.Source == m_control) journal.Note("over " + NameOf(figure.Picture));
    };
    dialogs.WhileOpen = window.WhileOpen = [this] {
        if (velora.Capture.Active) journal.Note("with the mouse held");
        loop.Turn();
    };

    using Value = const std::string&;
    for (const ControlRow& row : ControlTable())
        Words[std::string(row.Name)] = [this, &row](Value) { Point(&row.Element(form, 0), 2, 2); };
    for (const auto& row : kButtons) {
        PictureBox& box = form.*row.first;
        Words[std::string(box.Name)] = [this, &box](Value) { Point(m_box = &box, 5, 5); };
    }
    const auto number = [](Value text) { return static_cast<Integer>(std::stoi(text)); };
    Words.merge(decltype(Words){
        {"fresh", [this](Value) { SetPicture(*m_box, NewPicture()); }},
        {"showsplay", [this](Value) { SetPicture(form.picPlay, form.picPlay1.Picture); }},
        {"restored", [this](Value) { form.State = WindowState::Normal; }},
        {"untitled", [this](Value) { form.lblFilescroll.Caption.clear(); }},
        {"full", [this](Value) { velora.MediaLimit = velora.Count; }},
        {"count", [=, this](Value count) { velora.Count = number(count); }},
        {"beside", [this](Value) { Point(nullptr, 410, 215); }},
        {"off", [this](Value) { Point(m_control, 5, 60); }},
        {"in", [this](Value) { Point(m_control, 5, 5); }},
        {"shift", [this](Value) { m_keys ^= 1; }},
        {"ctrl", [this](Value) { m_keys ^= 2; }},
        {"lost", [this](Value) { Report(PointerKind::Lost, m_control, 0, 0, held = 0, 0); }},
        {"file", [this](Value path) { dialogs.Files.push_back(TextFromBytes(path)); }},
        {"input", [this](Value text) { dialogs.Inputs.push_back(TextFromBytes(text)); }},
        {"menu", [this](Value name) { window.MenuChoice = name; }},
        {"later",
         [this](std::string deeds) {
             std::ranges::replace(deeds, '&', ' ');
             loop.Post([this, deeds] { Do(deeds); });
         }},
        {"close", [this](Value) { handlers.OnClose(); }},
        {"command", [this](Value line) { machine.Arguments = TextFromBytes(line); }},
        {"start", [this](Value) { Form_Load(velora); }},
        {"track", [=, this](Value index) { StartTrack(velora, number(index)); }},
        {"tags", [this](Value) { playerEvents.OnTagInfo(u"Moon", u"Tide", u"", u"", u"", u""); }},
        {"stream", [this](Value) { playerEvents.OnStreamInfo(320, 48000, 2); }},
        {"length", [=, this](Value ms) { playerEvents.OnTrackLength(number(ms)); }},
        {"at", [=, this](Value ms) { playerEvents.OnPosition(number(ms)); }},
        {"bars", [=, this](Value bars) { playerEvents.OnVisData(number(bars)); }},
        {"|", [this](Value) { m_told += Outcome() + " | "; }},
    });
}

std::string Use::NameOf(const PicturePtr& picture) const {
    if (!picture) return "empty";
    for (const auto holder : kHolders)
        if ((form.*holder).Picture == picture) return std::string((form.*holder).Name);
    for (Integer step = 1; step <= kVolumeSteps; ++step)
        if (form.picVolumeArray[step].Picture == picture) return "step " + std::to_string(step);
    return "fresh";
}

void Use::Do(const std::string& deeds) {
    std::istringstream words(deeds);
    for (std::string word; words >> word;) {
        const auto colon = word.find(':'), comma = word.find(','), letter = "LRMS"s.find(word[1]);
        if (const auto known = Words.find(word.substr(0, colon)); known != Words.end())
            known->second(word.substr(colon + 1));
        else if (comma != std::string::npos)
            Point(m_control, std::stoi(word.substr(word.find_first_not_of('='))),
                  std::stoi(word.substr(comma + 1)), word[0] != '=');
        else if (word.ends_with('s'))
            loop.Wait(std::stod(word));
        else
            Report(word[0] == '+' ? PointerKind::Press : PointerKind::Release, m_control, m_x, m_y,
                   Integer(1 << (letter % 4)), m_keys);
    }
}

void Use::Point(const Control* control, int x, int y, bool reported) {
    m_control = control;
    m_x = x;
    m_y = y;
    if (reported) Report(PointerKind::Move, control, x, y, kNoButton, m_keys);
}

std::string Use::Tell(const std::string& deeds) {
    (void)Outcome();
    m_told.clear();
    try {
        Do(deeds);
    } catch (const ProcessEnded&) {
    }
    return m_told + Outcome();
}

std::string Use::Outcome() {
    const std::vector<std::string> before = std::exchange(m_facts, Facts());
    std::string told;
    const auto tell = [&](const std::string& part) { told += (told.empty() ? "" : ", ") + part; };
    const auto compare = [&](std::size_t first, std::size_t last) {
        for (std::size_t fact = first; fact < std::min(last, before.size()); ++fact)
            if (m_facts[fact] != before[fact]) tell(m_facts[fact]);
    };
    compare(0, kFirstFacts);
    const std::string home = Utf8(machine.Directory);
    for (std::string line : journal.Take()) {
        if (const auto at = line.find(home); at != std::string::npos)
            line.replace(at, home.size(), "~");
        if (line == "PlaySound ~\\click.wav") line = "click";
        if (!line.starts_with("Caption ")) tell(line.substr(line.starts_with("Player.") ? 7 : 0));
    }
    compare(kFirstFacts, m_facts.size());
    const std::int64_t passedMs = loop.NowMs() - std::exchange(m_sinceMs, loop.NowMs());
    if (passedMs != 0) tell(std::to_string(passedMs) + " ms");
    return told;
}

std::vector<std::string> Use::Facts() const {
    const auto onOff = [](bool on) { return on ? "on" : "off"; };
    const MouseCapture& capture = velora.Capture;
    const MediaEntry& last = velora.MediaList[velora.Count];
    std::stringstream facts;
    const auto add = [&](const PictureBox& box) {
        facts << box.Name << (box.Visible ? " " : " hidden ") << NameOf(box.Picture) << "\n";
    };
    add(form.picVolume);
    for (const auto& [button, holder] : kButtons)
        add(form.*button);
    facts << (capture.Active ? "held by " : "free") << (capture.Holder ? capture.Holder->Name : "")
          << "\n";
    facts << kStates[int(velora.PlayerState)] << "\ntrack " << velora.CurrentTrack << "\nseek "
          << velora.SeekOffset << "\nvolume " << form.lCurVol << "\nskin " << velora.CurrentSkin
          << "\nlimit " << velora.MediaLimit << "\nentry " << Utf8(last.Path + last.File)
          << " kind " << last.Type << " flag " << last.Flag << "\ntags "
          << Utf8(velora.TrackTitle + u" " + velora.TrackArtist) << "\nrates "
          << velora.TrackBitrate << " " << velora.TrackSampleRate << "\nin "
          << Utf8(machine.Current) << "\ncaption " << Utf8(form.Caption) << "\nstatus "
          << Utf8(form.lblStatusLabel.Caption) << "\ntitle "
          << Utf8(form.lblFilescroll.Caption.substr(0, 20)) << "\nlights "
          << std::ranges::count(form.shpPercent, kPassedColour, &Shape::FillColour)
          << "\nwindow state " << int(form.State) << "\nscope " << onOff(form.VFmp3scope1.Visible)
          << "\nlabels " << onOff(form.lblFilescroll.Visible) << " and "
          << onOff(form.lblStatusLabel.Visible) << "\nblink backward "
          << onOff(form.tmrSeekBackward.Enabled) << "\nblink forward "
          << onOff(form.tmrSeekForward.Enabled) << "\nscroll "
          << onOff(form.tmrScrollFiletitle.Enabled) << "\n";
    std::vector<std::string> lines;
    for (std::string line; std::getline(facts, line);)
        lines.push_back(line);
    return lines;
}

Program::Program() : Use(0) {
    const std::string skins = directory.Path("VELORA_MAIN");
    std::filesystem::create_directory_symlink(VELORA_SOURCE_DIR "/app/VELORA_MAIN", skins);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(skins + "/"))
        pictures.Known[PathText(entry.path().string())] = entry.path().stem() == "background"
                                                              ? NullPictures::Size{500, 300}
                                                              : NullPictures::Size{8, 8};
    machine.Directory = PathText(directory.Path());
    velora.MediaLimit = 9;
    Words["put"] = [this](std::string file) {
        std::ranges::replace(file, '&', '\n');
        for (std::size_t at; (at = file.find('~')) != std::string::npos;)
            file.replace(at, 1, Utf8(machine.Directory));
        const std::size_t end = file.find('=');
        directory.Put(file.substr(0, end), file.substr(end + 1));
    };
}
