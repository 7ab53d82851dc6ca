// A look-up finds the section in a sorted table and then reads its lines: keys are never collected,
// since a section is short and most files are read once.
#include "platform/ini_text.h"

#include <algorithm>
#include <set>

#include "platform/text.h"

namespace {

constexpr std::string_view kWhite = " \t\v\f";

struct Line {
    std::size_t Start = 0;
    std::size_t End = 0;  // Without the line end.
    std::size_t Next = 0; // Behind the line end.
};

Line LineAt(std::string_view bytes, std::size_t start) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
    std::size_t next = std::min(end + 1, bytes.size());
    if (bytes.substr(end).starts_with("\r\n")) next = end + 2;
    return {start, end, next};
}

std::string_view Trim(std::string_view text) {
    return Trimmed(text, kWhite);
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() &&
           (text.front() == '"' || text.front() == '\'');
}

std::string_view Strip(std::string_view value) {
    const std::string_view trimmed = Trim(value);
    return IsQuoted(trimmed) ? trimmed.substr(1, trimmed.size() - 2) : trimmed;
}

char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string InLowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), LowerLetter);
    return lower;
}

bool LessWithoutCase(std::string_view left, std::string_view right) {
    return std::ranges::lexicographical_compare(left, right, {}, LowerLetter, LowerLetter);
}

bool EqualWithoutCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, LowerLetter, LowerLetter);
}

// The name in a section's header; nothing if the line is none.
std::optional<std::string_view> HeaderName(std::string_view line) {
    const std::string_view trimmed = Trim(line);
    if (!trimmed.starts_with('[')) return std::nullopt;
    return Trim(trimmed.substr(1, std::min(trimmed.find(']'), trimmed.size()) - 1));
}

// The key of a line; nothing if it holds none.
std::optional<std::string_view> KeyName(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || Trim(line).starts_with(';')) return std::nullopt;
    return Trim(line.substr(0, equals));
}

} // namespace

IniText::IniText(std::string bytes) : m_bytes(std::move(bytes)) {
    CollectSections();
}

void IniText::CollectSections() {
    const std::string_view bytes = m_bytes;
    std::size_t at = ByteOrderMarkLength(bytes);
    while (at < bytes.size()) {
        const Line line = LineAt(bytes, at);
        at = line.Next;
        const auto name = HeaderName(bytes.substr(line.Start, line.End - line.Start));
        if (!name) continue;
        if (!m_sections.empty()) m_sections.back().End = line.Start;
        const auto nameAt = static_cast<std::size_t>(name->data() - bytes.data());
        m_sections.push_back({nameAt, name->size(), line.Next, bytes.size()});
    }
    std::ranges::stable_sort(m_sections, [this](const Section& left, const Section& right) {
        return LessWithoutCase(NameOf(left), NameOf(right));
    });
}

std::string_view IniText::NameOf(const Section& section) const {
    return std::string_view(m_bytes).substr(section.NameAt, section.NameLength);
}

const IniText::Section* IniText::FindSection(std::string_view name) const {
    const std::string_view wanted = Trim(name);
    const auto found =
        std::partition_point(m_sections.begin(), m_sections.end(), [&](const Section& section) {
            return LessWithoutCase(NameOf(section), wanted);
        });
    return found != m_sections.end() && EqualWithoutCase(NameOf(*found), wanted) ? &*found
                                                                                 : nullptr;
}

std::optional<std::string_view> IniText::Find(std::string_view section,
                                              std::string_view key) const {
    const Section* const found = FindSection(section);
    if (!found) return std::nullopt;
    const Place place = FindKey(*found, key);
    if (place.From == place.To) return std::nullopt;
    const std::string_view line =
        std::string_view(m_bytes).substr(place.From, place.To - place.From);
    return Strip(line.substr(line.find('=') + 1));
}

IniText::Place IniText::FindKey(const Section& section, std::string_view key) const {
    const std::string_view bytes = m_bytes, wanted = Trim(key);
    std::size_t behindLastKey = section.Start;
    for (std::size_t at = section.Start; at < section.End;) {
        const Line line = LineAt(bytes, at);
        at = line.Next;
        const auto name = KeyName(bytes.substr(line.Start, line.End - line.Start));
        if (!name) continue;
        if (EqualWithoutCase(*name, wanted)) return {line.Start, line.End};
        behindLastKey = line.Next;
    }
    return {behindLastKey, behindLastKey};
}

std::vector<IniLine> IniText::Lines() const {
    using enum IniLine::Kind;
    std::vector<IniLine> lines;
    std::set<std::pair<std::string, std::string>> seen; // Sections have no key.
    std::string_view section;
    bool counts = false;
    const std::string_view bytes = m_bytes;
    for (std::size_t at = ByteOrderMarkLength(bytes); at < bytes.size();) {
        const Line place = LineAt(bytes, at);
        at = place.Next;
        const std::string_view line = bytes.substr(place.Start, place.End - place.Start);
        if (const auto name = HeaderName(line)) {
            section = *name;
            counts = seen.emplace(InLowerCase(section), std::string()).second;
            lines.push_back({Section, section, {}, {}, counts});
        } else if (const auto key = KeyName(line)) {
            const bool first =
                counts && seen.emplace(InLowerCase(section), "=" + InLowerCase(*key)).second;
            lines.push_back({Key, section, *key, Strip(line.substr(line.find('=') + 1)), first});
        } else if (!Trim(line).empty() && !Trim(line).starts_with(';')) {
            lines.push_back({Neither, section, Trim(line), {}, false});
        }
    }
    return lines;
}

std::optional<std::string> IniText::With(std::string_view section, std::string_view key,
                                         std::string_view value) const {
    const std::string_view bytes = m_bytes;
    const Line first = LineAt(bytes, 0);
    const std::string lineEnd(
        first.End < first.Next ? bytes.substr(first.End, first.Next - first.End) : "\r\n");
    const std::string quote(Strip(value) == value ? "" : "\"");
    std::string added = std::string(Trim(key)) + "=" + quote + std::string(value) + quote;
    Place place{bytes.size(), bytes.size()};
    if (const Section* const found = FindSection(section))
        place = FindKey(*found, key);
    else
        added = "[" + std::string(Trim(section)) + "]" + lineEnd + added;
    if (place.From == place.To) {
        added += lineEnd;
        const std::string_view before = bytes.substr(0, place.From);
        const bool behindOpenLine = before.size() > ByteOrderMarkLength(bytes) &&
                                    before.find_last_of("\r\n") + 1 != before.size();
        if (behindOpenLine) added = lineEnd + added;
    }
    IniText result(std::string(bytes.substr(0, place.From)) + added +
                   std::string(bytes.substr(place.To)));
    if (result.Find(section, key) != value) return std::nullopt;
    return std::move(result.m_bytes);
}
