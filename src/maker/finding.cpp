// Paths, names and values come from files, so whatever is printed is short and without control
// characters.
#include "maker/finding.h"

#include "platform/paths.h"

namespace {

constexpr std::size_t kLongestQuote = 60;

} // namespace

std::string LineOf(const Finding& finding) {
    std::string line = PathBytes(finding.File);
    if (line.starts_with("./")) line.erase(0, 2);
    line += ": ";
    if (!finding.Section.empty()) line += "[" + Utf8(finding.Section) + "] ";
    if (!finding.Key.empty()) line += Utf8(finding.Key) + ": ";
    line += Utf8(finding.Words);
    for (char& letter : line)
        if (static_cast<unsigned char>(letter) < ' ' || letter == '\x7F') letter = '?';
    return line;
}

void Report::At(const void* field, const Text& words) {
    const KeyRead& read = Trial.ReadOf(field);
    Add({read.File.empty() ? Trial.Path : read.File, read.Section, read.Key, words});
}

void Report::In(const Text& section, const Text& words) {
    Add({Trial.Path, section, {}, words});
}

Text Quoted(TextView value) {
    const TextView start = StartOf(value, kLongestQuote);
    return u"\"" + Text(start) + (start.size() < value.size() ? u"...\"" : u"\"");
}

Text RemarkWords(TextView value) {
    for (const TextView mark : {u" ;", u"\t;", u" #", u"\t#", u" //", u"\t//"})
        if (value.find(mark) != TextView::npos)
            return u" (a remark needs a line of its own, which begins with ;)";
    return {};
}

Text SizeWords(std::int64_t widthPx, std::int64_t heightPx) {
    return Decimal(widthPx) + u" x " + Decimal(heightPx) + u" pixels";
}
