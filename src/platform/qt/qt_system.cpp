// The process ends without destructors, so nothing may depend on one.
#include "platform/qt/qt_system.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QWindow>
#include <unistd.h>
#include <utility>

#include "platform/paths.h"
#include "platform/program_places.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define VELORA_CHECK_LEAKS() __lsan_do_leak_check()
#endif
#endif
#ifndef VELORA_CHECK_LEAKS
#define VELORA_CHECK_LEAKS() static_cast<void>(0)
#endif

QtSystem::QtSystem(Text commandLine, std::function<bool(const Text&)> playSound)
    : m_directory(ProgramDirectory()), m_commandLine(std::move(commandLine)),
      m_current(ProcessDirectory()), m_playSound(std::move(playSound)) {}

Text QtSystem::IniFile(const Text& name) const {
    return IniPlace(m_directory, name);
}

Text QtSystem::OwnIniFile(const Text& name) const {
    return OwnIniPlace(m_directory, name);
}

void QtSystem::StartProgram(const Text& path) {
    const std::optional<std::string> found = FindPath(path);
    if (found) QProcess::startDetached(QFile::decodeName(found->c_str()), {});
}

void QtSystem::PlaySoundAndWait(const Text& path) {
    if (!m_playSound(path)) QApplication::beep();
}

void QtSystem::EndProcess() {
    if (const auto before = std::exchange(BeforeEnd, nullptr)) before();
    // Hiding reaches the display by itself; the toolkit's sync would let events happen.
    if (m_window) m_window->hide();
    VELORA_CHECK_LEAKS();
    _exit(0);
}
