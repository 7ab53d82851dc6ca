// What nothing reads is told from what was read: no list of keys stands here.
#include <algorithm>
#include <numeric>
#include <utility>

#include "maker/checks.h"
#include "platform/ini_file.h"
#include "platform/paths.h"
#include "skin/load_skin.h"

namespace {

constexpr std::size_t kLongestName = 40;

// What was asked of one section.
struct AskedSection {
    Text Name;
    std::vector<const KeyRead*> Reads;
};

// By the names in lower case.
using AskedSections = std::map<Text, AskedSection>;

AskedSections AskedIn(const Trial& trial, const Text& file) {
    AskedSections sections;
    for (const KeyRead& read : trial.Reads)
        if (read.File == file) {
            AskedSection& section = sections[LowerCase(read.Section)];
            section.Name = read.Section;
            section.Reads.push_back(&read);
        }
    return sections;
}

// How many letters have to be changed, added or left out to make one name of the other.
std::size_t DistanceBetween(TextView one, TextView other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t at = 0; at < one.size(); ++at) {
        std::size_t diagonal = std::exchange(row[0], at + 1);
        for (std::size_t to = 0; to < other.size(); ++to) {
            const std::size_t change = diagonal + (one[at] == other[to] ? 0 : 1);
            diagonal = row[to + 1];
            row[to + 1] = std::min({change, row[to] + 1, diagonal + 1});
        }
    }
    return row.back();
}

// "; is "left" meant?", or nothing if none of the names is near.
Text NearestWords(const Text& name, const std::vector<Text>& names) {
    const Text lower = LowerCase(name);
    std::size_t least = name.size() <= 3 ? 2 : 3;
    Text nearest;
    for (const Text& candidate : names)
        if (name.size() <= kLongestName)
            if (const std::size_t distance = DistanceBetween(lower, LowerCase(candidate));
                distance < least) {
                least = distance;
                nearest = candidate;
            }
    return nearest.empty() ? Text() : u"; is " + Quoted(nearest) + u" meant?";
}

// The number behind `name` in the name of a section, without leading zeros; 0 if it is none.
Long NumberBehind(TextView name, TextView section) {
    if (!EqualIgnoringCase(section.substr(0, name.size()), name)) return 0;
    const TextView digits = section.substr(name.size());
    const auto number = RoundedNumber<Long>(digits);
    return number && Decimal(*number) == digits ? *number : 0;
}

// Looks through the lines of one file.
class KeyCheck {
public:
    KeyCheck(Report& report, const Text& file)
        : m_report(report), m_file(file), m_asked(AskedIn(report.Trial, file)) {}

    void Look(const IniLine& line) {
        const Text section = TextFromBytes(line.Section);
        if (line.What == IniLine::Kind::Section)
            LookAtSection(section, line.Counts);
        else if (line.What == IniLine::Kind::Key)
            LookAtKey(section, line);
        else
            Say(section, {},
                Quoted(TextFromBytes(line.Key)) + u" has no equals sign, so it says nothing");
    }

private:
    void Say(const Text& section, const Text& key, const Text& words) {
        m_report.Add({m_file, section, Text(StartOf(key, kLongestName)), words});
    }

    void LookAtSection(const Text& name, bool counts) {
        m_isSecond = !counts;
        if (!counts) return Say(name, {}, u"stands a second time; only the first one counts");
        const auto asked = m_asked.find(LowerCase(name));
        if (asked == m_asked.end()) {
            if (!IsBehindBrokenLight(name)) Say(name, {}, UnreadSectionWords(name));
            return;
        }
        const KeyRead& gate = *asked->second.Reads.front();
        if (asked->second.Reads.size() == 1 && !gate.Given)
            Say(name, gate.Key, u"missing, so nothing of the section counts");
    }

    void LookAtKey(const Text& section, const IniLine& line) {
        const Text key = TextFromBytes(line.Key);
        const auto asked = m_asked.find(LowerCase(section));
        if (line.Section.empty()) return Say({}, key, u"stands above the first section");
        if (m_isSecond || asked == m_asked.end()) return;
        if (!line.Counts) return Say(section, key, u"stands a second time; the first one counts");
        const std::vector<const KeyRead*>& reads = asked->second.Reads;
        const auto read = std::ranges::find_if(
            reads, [&](const KeyRead* one) { return EqualIgnoringCase(one->Key, key); });
        if (read == reads.end()) {
            // Where reading has ended early the rest wasn't asked for. A slip of the pen shows
            // still.
            const bool isCut = reads.size() == 1 || IsBroken(section);
            const Text words = UnreadWords(key, reads);
            if (!isCut || words.ends_with(u'?')) Say(section, key, words);
            return;
        }
        if (!(*read)->Fits && (*read)->Given) Say(section, (*read)->Key, RefusedWords(**read));
        if (line.Value.size() > kMostValueBytes)
            Say(section, (*read)->Key,
                u"only the first " + Decimal(kMostValueBytes) + u" bytes of it count");
    }

    [[nodiscard]] Text RefusedWords(const KeyRead& read) const {
        Text words =
            Quoted(*read.Given) + u" isn't " + Text(read.Wanted) + RemarkWords(*read.Given);
        if (read.Wanted == kNumberWords<Long> && DecimalNumber(*read.Given)) words += u" that fits";
        if (m_asked.at(LowerCase(read.Section)).Reads.size() == 1 && !IsBroken(read.Section))
            words += u"; nothing of the section counts";
        if (IsBroken(read.Section)) words += u"; this light and those behind it aren't made";
        return words;
    }

    [[nodiscard]] static Text UnreadWords(const Text& key,
                                          const std::vector<const KeyRead*>& reads) {
        if (key.starts_with(u'#') || key.starts_with(u"//"))
            return u"nothing reads this; a remark begins with ;";
        std::vector<Text> missing;
        for (const KeyRead* read : reads)
            if (!read->Given) missing.push_back(read->Key);
        return u"nothing reads this key" + NearestWords(key, missing);
    }

    [[nodiscard]] Text UnreadSectionWords(const Text& name) const {
        const SkinRecord& skin = m_report.Trial.Skin();
        const Text words = u"nothing reads this section";
        const auto above = [&](TextView kind, const Integer& count, Integer most) {
            const Long number = NumberBehind(kind, name);
            if (number > most) return words + u"; " + Decimal(most) + u" are the most";
            if (number <= count) return Text();
            return words + u"; " + m_report.Trial.ReadOf(&count).Key + u" is " + Decimal(count);
        };
        Text more = above(kRegionSection, skin.ShapeCount, skin.Regions.kLast);
        if (more.empty()) more = above(kObjectSection, skin.ObjectCount, skin.Objects.kLast);
        if (!more.empty() && m_file == m_report.Trial.Path) return more;
        std::vector<Text> missing;
        for (const auto& [lower, asked] : m_asked)
            if (std::ranges::none_of(asked.Reads, [](const KeyRead* r) { return !!r->Given; }))
                missing.push_back(asked.Name);
        return words + NearestWords(name, missing);
    }

    // Of the light that ended the row the keys behind the fault weren't asked for.
    [[nodiscard]] bool IsBroken(const Text& section) const {
        const Integer broken = m_report.Trial.BrokenLight();
        return broken > 0 && section == Decimal(broken);
    }
    [[nodiscard]] bool IsBehindBrokenLight(const Text& section) const {
        const Integer broken = m_report.Trial.BrokenLight();
        const Long number = NumberBehind({}, section);
        return broken > 0 && number > broken && number <= kLights;
    }

    Report& m_report;
    const Text& m_file;
    const AskedSections m_asked;
    bool m_isSecond = false; // The lines now looked at stand in a section that doesn't count.
};

} // namespace

void CheckKeys(Report& report, const Text& file) {
    const std::optional<std::string> found = FindPath(file);
    const std::optional<IniFile> ini = found ? OpenIniFile(*found) : std::nullopt;
    if (!ini) return;
    KeyCheck check(report, file);
    for (const IniLine& line : ini->Content.Lines())
        check.Look(line);
}
