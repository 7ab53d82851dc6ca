// File names as the desktop writes them: as addresses, which are URIs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

/// The path that an address names, as the system's text. Nothing if it is no file of this machine,
/// or no address.
[[nodiscard]] std::optional<Text> PathOfAddress(std::string_view address);

/// The address of an absolute path; nothing is looked up.
[[nodiscard]] std::string AddressOfPath(TextView path);
