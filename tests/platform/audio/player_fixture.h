// A player with a listener that keeps all it is told, and files for it to play.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "platform/audio/media_maker.h"
#include "platform/audio/player/audio_player.h"
#include "platform/null/null_loop.h"
#include "platform/text.h"

struct EventLog : PlayerEvents {
    void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) override {
        Note("stream=" + std::to_string(Bitrate) + "/" + std::to_string(SampleRate) + "/" +
             std::to_string(Channels));
    }
    void OnTagInfo(const Text& Title, const Text& Artist, const Text& Album, const Text& Year,
                   const Text& Comment, const Text& Genre) override {
        Note("tag=" + Utf8(Title + u"/" + Artist + u"/" + Album + u"/" + Year + u"/" + Comment +
                           u"/" + Genre));
    }
    void OnTrackLength(Long Length) override {
        LengthMs = Length;
        Note("length=" + std::to_string(Length));
    }
    void OnVisData(Long VisData) override { Frames.push_back(VisData); }
    void OnPosition(Long Position) override {
        Positions.push_back(Position);
        Note("p" + std::to_string(Position));
    }
    virtual void Note(const std::string& what) { Told += what + " "; }

    /// Whether the track has told its end.
    [[nodiscard]] bool HasEnded() const {
        return !Positions.empty() && Positions.back() == LengthMs;
    }

    std::string Told; ///< All but `OnVisData`.
    Long LengthMs = -1;
    std::vector<Long> Positions;
    std::vector<Long> Frames;
};

class PlayerTest : public ::testing::Test {
protected:
    void Make(double clockSpeed) {
        m_settings.UseServer = !m_settings.Server.empty();
        m_settings.ClockSpeed = clockSpeed;
        m_player = std::make_unique<AudioPlayer>(m_loop, m_settings);
        m_player->Attach(m_log);
    }
    void Start(const Text& path) {
        m_log = {};
        m_player->Stop();
        m_player->TrackFile(path);
        m_player->Play();
    }
    /// Runs the loop until `done`; false if that takes longer than any test should.
    bool Until(const std::function<bool()>& done) { return m_loop.RunUntil(done, 30000); }
    bool UntilPlace(Long ms) {
        return Until([&] { return !m_log.Positions.empty() && m_log.Positions.back() >= ms; });
    }
    bool UntilEnd() {
        return Until([&] { return m_log.HasEnded(); });
    }
    /// Noise of `ms` milliseconds by `lame` with these options.
    Text Song(const std::string& name, int ms, const std::string& options = "-b 64") {
        return m_media.Write(name, m_media.Encode("lame --quiet " + options, 44100, 2, ms));
    }

    MediaMaker m_media;
    AudioSettings m_settings;
    NullLoop m_loop;
    EventLog m_log;
    std::unique_ptr<AudioPlayer> m_player;
};
