// Reading and writing a key of an ini file: the system's only access to such files. No failure is
// reported.
//
// A value is taken as UTF-8 where it is valid UTF-8, otherwise as Windows-1252; written is UTF-8.
#pragma once

#include <functional>
#include <vector>

#include "platform/ini_file.h"
#include "platform/loop.h"
#include "platform/number_text.h"
#include "platform/text.h"

/// No more of a value comes back.
constexpr std::size_t kMostValueBytes = 254;

/// The value of a key, without the blanks and the one pair of quotation marks around it. At most
/// 254 bytes of it come back, without a half letter at the cut, and nothing behind a NUL.
/// `Default`, unchanged, if the file, the section or the key is missing or the value is empty. Goes
/// to the file anew at each call.
[[nodiscard]] Text ReadProfileString(TextView File, TextView Section, TextView Key,
                                     TextView Default);

/// A key with the value that it gets.
struct ProfileString {
    Text Section, Key, Value;
};

/// What is to be written into a file that holds `now`; see `IniChange`.
using ProfileChange = std::function<std::vector<ProfileString>(const IniText& now)>;

/// Sets keys that belong together, all or none, making sections and file as needed, by the safe
/// writing of `ChangeIniFile`; the directory has to be there. False for a write that failed, which
/// has changed nothing. A file that is made begins as a copy of `Seed`, where there is one.
///
/// All of it happens under the lock of the file's directory, for which it waits up to a second with
/// events going on. Without the lock the file is written all the same; a change of another program
/// is read first either way.
bool WriteProfileStrings(Loop& loop, TextView File, const ProfileChange& change,
                         TextView Seed = {});

/// Whether a value that was written is read back whole: no more than 254 bytes in UTF-8, and
/// neither a line end nor a NUL in it.
[[nodiscard]] bool ReadsBackWhole(TextView Value);

/// What a read came to. The views hold as long as the call.
struct ProfileRead {
    TextView File, Section, Key;
    const void* Field = nullptr; ///< What the value is for.
    std::optional<Text> Given;   ///< The value in the file; nothing if it is missing or empty.
    bool Fits = true;            ///< Whether the value, or the default, could be put there.
    TextView Wanted;             ///< What would fit, in words, where not all does.
};

/// Hears of reads; empty where nobody listens.
using ProfileWatch = std::function<void(const ProfileRead&)>;

/// Many reads of one file. Each looks at the file and gives what stands in it then, but its text is
/// only read again if that look shows another file, size or time of change.
class ProfileReader {
public:
    explicit ProfileReader(TextView File) : m_path(File) {}
    /// `watch` has to live as long as the reader.
    ProfileReader(TextView File, const ProfileWatch& watch)
        : m_path(File), m_watch(watch ? &watch : nullptr) {}

    /// As `ReadProfileString`.
    [[nodiscard]] Text Read(TextView Section, TextView Key, TextView Default);

    /// Tells whoever listens what the last read came to.
    void Tell(TextView Section, TextView Key, const void* field, bool fits, TextView wanted) {
        if (m_watch) TellWatch(Section, Key, field, fits, wanted);
    }

private:
    void LookAtFile();
    void TellWatch(TextView Section, TextView Key, const void* field, bool fits, TextView wanted);

    Text m_path;
    const ProfileWatch* m_watch = nullptr;
    std::string m_foundPath;
    std::optional<IniFile> m_file;
};

/// What a number of type `Whole` is, in words.
template<typename Whole>
constexpr TextView kNumberWords = sizeof(Whole) == sizeof(Integer)
                                      ? TextView(u"a number from -32,768 to 32,767")
                                      : TextView(u"a number");

/// Reads a text into a record's field; a missing one is empty.
void ReadProfileText(ProfileReader& reader, TextView Section, TextView Key, Text& field);

/// Reads a number into a record's field. A text that doesn't convert or doesn't fit leaves the
/// field as it was.
template<typename Whole>
void ReadProfileNumber(ProfileReader& reader, TextView Section, TextView Key, TextView Default,
                       Whole& field) {
    const auto number = RoundedNumber<Whole>(reader.Read(Section, Key, Default));
    if (number) field = *number;
    reader.Tell(Section, Key, &field, number.has_value(), kNumberWords<Whole>);
}

/// The same for a truth value.
void ReadProfileBoolean(ProfileReader& reader, TextView Section, TextView Key, TextView Default,
                        Boolean& field);
