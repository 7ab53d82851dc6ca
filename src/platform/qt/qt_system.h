// What the system asks of the machine, and the end of the process.
#pragma once

#include <functional>

#include "platform/system.h"

class QWindow;

/// The machine that the program runs on.
class QtSystem : public System {
public:
    /// `commandLine` is what `CommandLine` gives. `playSound` plays the file of a path, returns as
    /// `PlaySoundAndWait` does, and says whether it could play it.
    QtSystem(Text commandLine, std::function<bool(const Text&)> playSound);

    /// The window that `EndProcess` hides before the process ends.
    void Attach(QWindow& window) { m_window = &window; }

    /// Called once when the process is about to end.
    std::function<void()> BeforeEnd;

    [[nodiscard]] Text ApplicationDirectory() const override { return m_directory; }
    [[nodiscard]] Text IniFile(const Text& name) const override;
    [[nodiscard]] Text OwnIniFile(const Text& name) const override;
    [[nodiscard]] Text CommandLine() const override { return m_commandLine; }
    [[nodiscard]] Text CurrentDirectory() const override { return m_current; }
    void SetCurrentDirectory(const Text& directory) override { m_current = directory; }
    void StartProgram(const Text& path) override;
    void PlaySoundAndWait(const Text& path) override;
    [[noreturn]] void EndProcess() override;

private:
    Text m_directory;
    Text m_commandLine;
    Text m_current;
    std::function<bool(const Text&)> m_playSound;
    QWindow* m_window = nullptr;
};
