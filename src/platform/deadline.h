// Which of several moments comes first.
#pragma once

#include <initializer_list>
#include <optional>

/// The earliest of `deadlines`, of which some may be none; none if all are.
template<typename Moment>
[[nodiscard]] std::optional<Moment>
Earliest(std::initializer_list<std::optional<Moment>> deadlines) {
    std::optional<Moment> earliest;
    for (const std::optional<Moment>& deadline : deadlines)
        if (deadline && (!earliest || *deadline < *earliest)) earliest = deadline;
    return earliest;
}
