// A player with a listener, and files for it to play.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "platform/audio/audio_player.h"
#include "platform/audio/event_log.h"
#include "platform/audio/media_maker.h"
#include "platform/null/null_loop.h"

class PlayerTest : public ::testing::Test {
protected:
    void Make(AudioSettings settings) {
        m_player = std::make_unique<AudioPlayer>(m_loop, std::move(settings));
        m_player->Attach(m_log);
    }
    void Start(const Text& path) {
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
    NullLoop m_loop;
    EventLog m_log;
    std::unique_ptr<AudioPlayer> m_player;
};
