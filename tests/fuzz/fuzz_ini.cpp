// Ini text: look-ups in any bytes, and that a change sets the value and changes nothing when done
// again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/ini_text.h"
#include "platform/number_text.h"

namespace {

// The bytes up to the first NUL, taken away from `input` with it.
std::string TakePart(std::string_view& input) {
    const std::size_t end = std::min(input.find('\0'), input.size());
    const std::string part(input.substr(0, end));
    input.remove_prefix(std::min(end + 1, input.size()));
    return part;
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
    if (after.Find(section, key) != value || after.With(section, key, value) != *changed)
        std::abort();
    return 0;
}
