// Each operation notes what it was asked and gives what was prepared.
#include "platform/null/null_parts.h"

namespace {

template<typename Answer>
Answer TakeAnswer(std::deque<Answer>& prepared, Answer otherwise) {
    if (prepared.empty()) return otherwise;
    Answer answer = std::move(prepared.front());
    prepared.pop_front();
    return answer;
}

} // namespace

MessageAnswer NullDialogs::MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) {
    m_journal.Note((icon == MessageIcon::Question ? "Question " : "MessageBox ") + Utf8(text));
    if (WhileOpen) WhileOpen();
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    return TakeAnswer(Answers, MessageAnswer::No);
}

Text NullDialogs::InputBox(const Text& prompt, const Text& title) {
    m_journal.Note("InputBox " + Utf8(title) + ": " + Utf8(prompt));
    if (WhileOpen) WhileOpen();
    return TakeAnswer(Inputs, Text());
}

Text NullDialogs::ChooseFile(const Text& title, const Text& directory,
                             const std::vector<FilterRow>& rows) {
    m_journal.Note("ChooseFile " + Utf8(title));
    LastDirectory = directory;
    LastRows = rows;
    if (WhileOpen) WhileOpen();
    return TakeAnswer(Files, Text());
}

PicturePtr NullPictures::LoadPicture(const Text& path) {
    const auto known = Known.find(path);
    if (known == Known.end()) return nullptr;
    return std::make_shared<LoadedPicture>(known->second.WidthPx, known->second.HeightPx);
}

void NullSystem::StartProgram(const Text& path) {
    m_journal.Note("StartProgram " + Utf8(path));
}

void NullSystem::PlaySoundAndWait(const Text& path) {
    m_journal.Note("PlaySound " + Utf8(path));
    if (WhileSound) WhileSound();
}

void NullSystem::EndProcess() {
    m_journal.Note("EndProcess");
    throw ProcessEnded{};
}

void NullPlayer::TrackFile(const Text& path) {
    m_journal.Note("Player.TrackFile " + Utf8(path));
}

void NullPlayer::Seek(Long seconds) {
    m_journal.Note("Player.Seek " + Utf8(Decimal(seconds)));
}

void NullPlayer::SeekBy(Long milliseconds) {
    m_journal.Note("Player.SeekBy " + Utf8(Decimal(milliseconds)));
}

void NullPlayer::SetVolume(Integer& percent) {
    m_journal.Note("Player.SetVolume " + Utf8(Decimal(percent)));
}

void NullScope::ShowVisData(Long& VisData) {
    m_journal.Note("Scope.ShowVisData " + Utf8(Decimal(VisData)));
}
