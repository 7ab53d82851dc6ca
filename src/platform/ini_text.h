// The grammar of ini files, on bytes: sections in square brackets, lines of key, equals sign and
// value.
//
// Lines end with CR LF, LF or CR. A line whose first letter is `[` begins a section, whose name
// goes to the next `]`, or to the line's end where that is missing. A line whose first letter is
// `;` is a comment. Any other line with an equals sign holds a key; the rest is passed over. White
// space around names and values doesn't count, and one pair of double or single quotation marks
// around a value doesn't either. Names match without regard to the case of the 26 letters. Of
// sections with one name the first counts, and in it the first line of a key. A byte order mark of
// UTF-8 at the start doesn't count.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A line of an ini file that says something, or means to.
struct IniLine {
    enum class Kind { Section, Key, Neither };

    Kind What = Kind::Neither;
    std::string_view Section; ///< Its own name, or that of the section above; empty without one.
    std::string_view Key;     ///< Its key; of `Neither` the whole line.
    std::string_view Value;   ///< Without the white space and the quotation marks around it.
    /// Whether a look-up can find it: not above the first section, and not a second time.
    bool Counts = false;
};

/// The text of an ini file with the places of its sections, so that many look-ups are quick in a
/// large file.
class IniText {
public:
    explicit IniText(std::string bytes = {});

    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

    /// The value of a key, without the white space and the quotation marks around it. Nothing if
    /// there is no such section or key. It lies in `Bytes`.
    [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                       std::string_view key) const;

    /// Whether there is a section of that name, be it without a key.
    [[nodiscard]] bool HasSection(std::string_view name) const {
        return FindSection(name) != nullptr;
    }

    /// All lines but blank ones and comments, in their order, as views on `Bytes`.
    [[nodiscard]] std::vector<IniLine> Lines() const;

    /// The bytes with the key set to that value; all other lines stay byte for byte. The key's line
    /// is written anew, or comes after the last key of its section, or in a new section at the end.
    /// Line ends are those of the file's first line, CR LF where there is none. A value that `Find`
    /// would strip stands in quotation marks. Nothing if the value couldn't be found again, as with
    /// a line end in it.
    [[nodiscard]] std::optional<std::string> With(std::string_view section, std::string_view key,
                                                  std::string_view value) const;

private:
    // Places in `m_bytes`; no views, so that the object may be moved. The lines go from behind the
    // header up to the next one.
    struct Section {
        std::size_t NameAt = 0;
        std::size_t NameLength = 0;
        std::size_t Start = 0;
        std::size_t End = 0;
    };
    // From the start to the end of a key's line, without its line end; or twice the place behind
    // the last key of the section, if there is no such line.
    struct Place {
        std::size_t From = 0;
        std::size_t To = 0;
    };
    void CollectSections();
    [[nodiscard]] std::string_view NameOf(const Section& section) const;
    [[nodiscard]] const Section* FindSection(std::string_view name) const;
    [[nodiscard]] Place FindKey(const Section& section, std::string_view key) const;

    std::string m_bytes;
    std::vector<Section> m_sections; ///< By name without case, those of one name by place.
};
