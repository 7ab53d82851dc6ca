// Dialogs, pictures, system, player and scope without a display or a sound server: recorders with
// answers that are prepared beforehand.
#pragma once

#include <deque>
#include <functional>
#include <map>

#include "platform/dialogs.h"
#include "platform/null/journal.h"
#include "platform/picture.h"
#include "platform/player.h"
#include "platform/scope.h"
#include "platform/system.h"

/// Notes "MessageBox TEXT" or, of a question, "Question TEXT", "InputBox TITLE: PROMPT" and
/// "ChooseFile TITLE", and gives the next prepared answer; without one the user closes the dialog
/// without a choice.
class NullDialogs : public Dialogs {
public:
    explicit NullDialogs(Journal& journal) : m_journal(journal) {}
    MessageAnswer MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) override;
    Text InputBox(const Text& prompt, const Text& title) override;
    Text ChooseFile(const Text& title, const Text& directory,
                    const std::vector<FilterRow>& rows) override;

    std::deque<MessageAnswer> Answers; ///< For questions.
    std::deque<Text> Inputs;
    std::deque<Text> Files;
    Text LastDirectory; ///< What the last `ChooseFile` was given.
    std::vector<FilterRow> LastRows;
    std::function<void()> WhileOpen; ///< Runs inside each dialog.

private:
    Journal& m_journal;
};

/// Gives a new picture of the prepared size for each path that it knows.
class NullPictures : public Pictures {
public:
    PicturePtr LoadPicture(const Text& path) override;

    struct Size {
        int WidthPx, HeightPx;
    };
    std::map<Text, Size> Known;
};

/// Notes "PlaySound PATH", "StartProgram PATH" and "EndProcess"; the last throws `ProcessEnded`.
class NullSystem : public System {
public:
    explicit NullSystem(Journal& journal) : m_journal(journal) {}
    Text ApplicationDirectory() const override { return Directory; }
    Text IniFile(const Text& name) const override { return Directory + name; }
    Text OwnIniFile(const Text& name) const override {
        return (OwnDirectory.empty() ? Directory : OwnDirectory) + name;
    }
    Text CommandLine() const override { return Arguments; }
    Text CurrentDirectory() const override { return Current; }
    void SetCurrentDirectory(const Text& directory) override { Current = directory; }
    void StartProgram(const Text& path) override;
    void PlaySoundAndWait(const Text& path) override;
    [[noreturn]] void EndProcess() override;

    Text Directory = u"\\velora";
    Text OwnDirectory; ///< Where ini files are written; `Directory` if empty.
    Text Arguments;
    Text Current = u"\\home";
    std::function<void()> WhileSound; ///< Runs inside each sound.

private:
    Journal& m_journal;
};

/// What `NullSystem::EndProcess` throws; only a test catches it.
struct ProcessEnded {};

/// Notes "Player.NAME ARGUMENT" for each operation but `LookIn`, whose directories it keeps.
class NullPlayer : public Player {
public:
    explicit NullPlayer(Journal& journal) : m_journal(journal) {}
    void LookIn(const std::vector<Text>& directories) override { Directories = directories; }
    void TrackFile(const Text& path) override;
    void Play() override { m_journal.Note("Player.Play"); }
    void Stop() override { m_journal.Note("Player.Stop"); }
    void TogglePause() override { m_journal.Note("Player.TogglePause"); }
    void Seek(Long seconds) override;
    void SeekBy(Long milliseconds) override;
    void SetVolume(Integer& percent) override;

    std::vector<Text> Directories; ///< What the last `LookIn` was given.

private:
    Journal& m_journal;
};

/// Notes "Scope.ShowVisData NUMBER".
class NullScope : public Scope {
public:
    explicit NullScope(Journal& journal) : m_journal(journal) {}
    void ShowVisData(Long& VisData) override;

private:
    Journal& m_journal;
};
