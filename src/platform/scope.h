// The visualisation's side of the player: frames of samples in, heights of bars out.
#pragma once

#include <array>

#include "platform/numbers.h"

/// What the visualisation shows now, band by band from 60 Hz to 16 kHz on a logarithmic scale:
/// heights from 0 (rest) to 1 (full scale), low tones first. The window layer draws `Level` as a
/// bar and `Peak` as a small mark above it.
struct ScopeBars {
    static constexpr int kCount = 48;
    std::array<float, kCount> Level{};
    std::array<float, kCount> Peak{};

    bool operator==(const ScopeBars&) const = default;
};

/// Draws what the player lets be heard.
class Scope {
public:
    virtual ~Scope() = default;

    /// Takes the value of an `OnVisData` and draws the frame of samples that it names. A value that
    /// names no frame any more draws nothing.
    virtual void ShowVisData(Long& VisData) = 0;
};
