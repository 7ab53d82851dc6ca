// Texts become bytes and bytes become texts here; what an ini file is stands in ini_text.
#include "platform/profile_strings.h"

#include "platform/directory_lock.h"
#include "platform/ini_write.h"
#include "platform/paths.h"

namespace {

// The longest start of `value` that comes back. In a value of UTF-8 it ends between two letters.
std::string_view CutToLimit(std::string_view value) {
    if (value.size() <= kMostValueBytes) return value;
    std::size_t length = kMostValueBytes;
    if (IsUtf8(value))
        while (ContinuesUtf8(value[length]))
            --length;
    return value.substr(0, length);
}

} // namespace

Text ProfileReader::Read(TextView Section, TextView Key, TextView Default) {
    LookAtFile();
    if (!m_file) return Text(Default);
    const auto value = m_file->Content.Find(Utf8(Section), Utf8(Key));
    if (!value || value->empty()) return Text(Default);
    const std::string_view cut = CutToLimit(*value);
    return TextFromBytes(cut.substr(0, cut.find('\0')));
}

void ProfileReader::LookAtFile() {
    if (m_file && IsUnchanged(*m_file, m_foundPath)) return;
    m_file.reset();
    const std::optional<std::string> found = FindPath(m_path);
    if (!found) return;
    m_foundPath = *found;
    m_file = OpenIniFile(m_foundPath);
}

void ProfileReader::TellWatch(TextView Section, TextView Key, const void* field, bool fits,
                              TextView wanted) {
    ProfileRead read{m_path, Section, Key, field, {}, fits, wanted};
    const auto value = m_file ? m_file->Content.Find(Utf8(Section), Utf8(Key)) : std::nullopt;
    if (value && !value->empty()) read.Given = TextFromBytes(*value);
    (*m_watch)(read);
}

Text ReadProfileString(TextView File, TextView Section, TextView Key, TextView Default) {
    return ProfileReader(File).Read(Section, Key, Default);
}

bool WriteProfileStrings(Loop& loop, TextView File, const ProfileChange& change, TextView Seed) {
    const std::optional<std::string> path = FindPathForWriting(File);
    const std::optional<std::string> target = path ? FileBehindLinks(*path) : std::nullopt;
    if (!target) return false;
    const std::string directory = DirectoryOf(*target);
    DirectoryLock lock(loop, directory);
    if (lock) RemoveLeftovers(directory);
    const auto bytesOf = [&](const IniText& now) {
        // Who has held it for so long may be done by now.
        lock.AskAgain();
        std::vector<IniValue> values;
        for (const ProfileString& string : change(now))
            values.push_back({Utf8(string.Section), Utf8(string.Key), Utf8(string.Value)});
        return values;
    };
    return ChangeIniFile(*target, bytesOf, {}, FindPath(Seed).value_or(std::string()));
}

bool ReadsBackWhole(TextView Value) {
    return Value.find_first_of(TextView(u"\0\r\n", 3)) == TextView::npos &&
           Utf8(Value).size() <= kMostValueBytes;
}

void ReadProfileText(ProfileReader& reader, TextView Section, TextView Key, Text& field) {
    field = reader.Read(Section, Key, {});
    reader.Tell(Section, Key, &field, true, {});
}

void ReadProfileBoolean(ProfileReader& reader, TextView Section, TextView Key, TextView Default,
                        Boolean& field) {
    const auto truth = TruthValue(reader.Read(Section, Key, Default));
    if (truth) field = *truth;
    reader.Tell(Section, Key, &field, truth.has_value(), u"True or False");
}
