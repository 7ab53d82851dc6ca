// Ini text: look-ups in any bytes, and that a change sets one value and keeps all other lines.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

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

// Whether `now` is `before` with one line, or no line, in the place of other bytes.
bool DiffersInOneLine(std::string_view before, std::string_view now) {
    const auto front = std::ranges::mismatch(before, now).in1 - before.begin();
    before.remove_prefix(static_cast<std::size_t>(front));
    now.remove_prefix(static_cast<std::size_t>(front));
    const auto back = std::mismatch(before.rbegin(), before.rend(), now.rbegin(), now.rend()).first;
    return std::string_view(before.begin(), back.base()).find_first_of("\r\n") == std::string_view::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string section = TakePart(input), key = TakePart(input), value = TakePart(input);
    const IniText ini{std::string(input)};
    static_cast<void>(RoundedNumber<Long>(TextFromBytes(ini.Find(section, key).value_or(value))));
    const auto changed = ini.With(section, key, value);
    if (!changed) return 0;
    const IniText after(*changed);
    Require(after.Find(section, key) == value);
    Require(DiffersInOneLine(ini.Bytes(), *changed));
    Require(after.With(section, key, value) == *changed);
    return 0;
}
