// The output of a machine without a sound server: time passes as if the track were heard.
#pragma once

#include "platform/audio/output/sound_output.h"

class ClockOutput : public SoundOutput {
public:
    /// `speed` is how much faster than real time it runs.
    explicit ClockOutput(double speed) : m_speed(speed) {}

    void Open(const SoundFormat& format, const std::string& title, std::int64_t nowUs) override;
    void Close(std::int64_t) override { m_state = OutputState::Closed; }
    [[nodiscard]] OutputState State() const override { return m_state; }
    [[nodiscard]] bool Sounds() const override { return false; }
    [[nodiscard]] std::int64_t WritableFrames(std::int64_t nowUs) override;
    void Write(std::span<const std::int16_t> samples, std::int64_t nowUs) override;
    void Rewrite(std::span<const std::int16_t>) override {}
    void Hold(bool held, std::int64_t nowUs) override;
    void Drop(std::int64_t nowUs) override;
    [[nodiscard]] std::int64_t HeardFrames(std::int64_t nowUs) override;
    [[nodiscard]] double Pace() const override;
    [[nodiscard]] std::optional<std::int64_t> DueUs() const override;
    void Poll(std::int64_t nowUs) override;

private:
    void Settle(std::int64_t nowUs);
    [[nodiscard]] std::int64_t AheadFrames() const;

    double m_speed;
    OutputState m_state = OutputState::Closed;
    SoundFormat m_format;
    bool m_held = false;
    std::int64_t m_written = 0;
    std::int64_t m_heard = 0; ///< At `m_sinceUs`.
    std::int64_t m_sinceUs = 0;
    std::int64_t m_askAtUs = 0; ///< When it wants to be given more.
};
