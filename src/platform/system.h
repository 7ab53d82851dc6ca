// What the system asks of the machine, apart from reading and writing files: directories, the
// command line, other programs, the click, the end of the process.
#pragma once

#include "platform/text.h"

class System {
public:
    virtual ~System() = default;

    /// The directory of the program's file, links resolved, without a trailing backslash.
    [[nodiscard]] virtual Text ApplicationDirectory() const = 0;

    /// The path at which an ini file is to be read; `name` begins with a backslash. It is
    /// `OwnIniFile`, unless there is no such file and one beside the program.
    [[nodiscard]] virtual Text IniFile(const Text& name) const = 0;

    /// The path at which it is to be written: beside the program or, where that directory can't be
    /// written (an installation for all users), in the user's own data directory. The file needn't
    /// be there.
    [[nodiscard]] virtual Text OwnIniFile(const Text& name) const = 0;

    /// What follows the program's name on the command line: every argument made absolute and put in
    /// quotation marks, joined by blanks.
    [[nodiscard]] virtual Text CommandLine() const = 0;

    /// The current directory as text: the process's at the start, then that of the file last chosen
    /// in a dialog.
    [[nodiscard]] virtual Text CurrentDirectory() const = 0;

    /// Makes the directory of a chosen file the current one. The process's own directory stays.
    virtual void SetCurrentDirectory(const Text& directory) = 0;

    /// Starts another program in a window of its own and returns. A failure is silent.
    virtual void StartProgram(const Text& path) = 0;

    /// Plays a short sound and returns when it has ended, at the latest after a second. A file that
    /// can't be played gives the desktop's bell, without waiting.
    virtual void PlaySoundAndWait(const Text& path) = 0;

    /// Ends the process at once: nothing runs afterwards, nothing is written. Doesn't return.
    [[noreturn]] virtual void EndProcess() = 0;
};
