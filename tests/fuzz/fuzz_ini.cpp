// Ini text: look-ups in any bytes, and that a change sets one value and keeps all other lines.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/ini_text.h"
#include "platform/number_text.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// The bytes up to the first NUL, taken away from `input` with it.
std::string TakePart(std::string_view& input) {
    const std::size_t end = std::min(input.find('\0'), input.size());
    const std::string part(input.substr(0, end));
    input.remove_prefix(std::min(end + 1, input.size()));
    return part;
}

std::vector<std::string_view> LinesOf(std::string_view bytes) {
    std::vector<std::string_view> lines;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        lines.push_back(bytes.substr(0, end));
        bytes.remove_prefix(end);
        bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, bytes.size()));
    }
    return lines;
}

// Whether `now` is `before` with one line in the place of another, or with one or two new lines.
bool DiffersInOnePlace(std::string_view before, std::string_view now) {
    const auto old = LinesOf(before), fresh = LinesOf(now);
    if (fresh.size() < old.size() || fresh.size() > old.size() + 2) return false;
    std::size_t same = 0;
    while (same < old.size() && old[same] == fresh[same])
        ++same;
    std::size_t sameAtEnd = 0;
    while (sameAtEnd < old.size() - same &&
           old[old.size() - 1 - sameAtEnd] == fresh[fresh.size() - 1 - sameAtEnd])
        ++sameAtEnd;
    const std::size_t changed = old.size() - same - sameAtEnd;
    return changed == 0 || (changed == 1 && fresh.size() == old.size());
}

void TryNumbers(std::string_view bytes) {
    const Text text = TextFromBytes(bytes);
    const auto rounded = RoundedNumber<Long>(text), floored = FlooredNumber<Long>(text);
    if (rounded && floored)
        Require(std::int64_t{*rounded} - *floored >= 0 && std::int64_t{*rounded} - *floored <= 1);
    const auto narrow = RoundedNumber<Integer>(text);
    const bool hexadecimal = HexadecimalNumber(text, 16).has_value();
    if (narrow && !hexadecimal) Require(rounded && *rounded == *narrow);
    if (rounded) Require(TruthValue(text).has_value());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string section = TakePart(input), key = TakePart(input), value = TakePart(input);
    const IniText ini{std::string(input)};
    const auto before = ini.Find(section, key);
    TryNumbers(value);
    if (before) TryNumbers(*before);
    const auto changed = ini.With(section, key, value);
    if (!changed) return 0;
    const IniText after(*changed);
    Require(after.Find(section, key) == value);
    Require(DiffersInOnePlace(ini.Bytes(), *changed));
    Require(after.With(section, key, value) == *changed);
    for (const char* other : {"Count", "Enabled", "x"})
        if (IniText("[s]\n" + key + "=").Find("s", other) == std::nullopt)
            Require(after.Find("Settings", other) == ini.Find("Settings", other));
    return 0;
}
