// A listener of the player's that keeps all it is told.
#pragma once

#include <string>
#include <vector>

#include "platform/player.h"
#include "platform/text.h"

struct EventLog : PlayerEvents {
    void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) override {
        Note("stream=" + std::to_string(Bitrate) + "/" + std::to_string(SampleRate) + "/" +
             std::to_string(Channels));
    }
    void OnTagInfo(const Text& Title, const Text& Artist, const Text& Album, const Text& Year,
                   const Text& Comment, const Text& Genre) override {
        Note("tag=" +
             Utf8(Title + u"/" + Artist + u"/" + Album + u"/" + Year + u"/" + Comment + u"/" + Genre));
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
    [[nodiscard]] bool HasEnded() const { return !Positions.empty() && Positions.back() == LengthMs; }

    std::string Told; ///< All but `OnVisData`.
    Long LengthMs = -1;
    std::vector<Long> Positions;
    std::vector<Long> Frames;
};
