// Byte for byte: a name needn't be UTF-8.
#include "comforts/media_address.h"

#include "platform/paths.h"

namespace {

constexpr std::string_view kScheme = "file://", kHost = "localhost";
constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
                                    "/-._~!$&'()*+,;=:@";
constexpr std::string_view kDigits = "0123456789ABCDEF";

int DigitOf(char letter) {
    const char upper =
        letter >= 'a' && letter <= 'f' ? static_cast<char>(letter - 'a' + 'A') : letter;
    const std::size_t digit = kDigits.find(upper);
    return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

// Nothing for a sign that isn't followed by two digits, and for a NUL.
std::optional<std::string> Decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        int byte = static_cast<unsigned char>(text[at]);
        if (text[at] == '%') {
            if (at + 2 >= text.size()) return std::nullopt;
            const int high = DigitOf(text[at + 1]), low = DigitOf(text[at + 2]);
            if (high < 0 || low < 0) return std::nullopt;
            byte = high * 16 + low;
            at += 2;
        }
        if (byte == 0) return std::nullopt;
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

std::optional<Text> PathOfAddress(std::string_view address) {
    if (address.size() < kScheme.size()) return std::nullopt;
    for (std::size_t at = 0; at < kScheme.size(); ++at) {
        const char letter = address[at];
        const bool upper = letter >= 'A' && letter <= 'Z';
        if ((upper ? static_cast<char>(letter - 'A' + 'a') : letter) != kScheme[at])
            return std::nullopt;
    }
    std::string_view rest = address.substr(kScheme.size());
    if (rest.starts_with(kHost)) rest.remove_prefix(kHost.size());
    if (!rest.starts_with('/')) return std::nullopt;
    const std::optional<std::string> bytes = Decoded(rest);
    return bytes ? std::optional(PathText(*bytes)) : std::nullopt;
}

std::string AddressOfPath(TextView path) {
    std::string address(kScheme);
    for (const char letter : PathBytes(path)) {
        if (kPlain.find(letter) != std::string_view::npos) {
            address += letter;
            continue;
        }
        const auto byte = static_cast<unsigned char>(letter);
        address += '%';
        address += kDigits[byte / 16];
        address += kDigits[byte % 16];
    }
    return address;
}
