// A listener of the player's that keeps all it is told.
#pragma once

#include <string>
#include <vector>

#include "platform/player.h"

struct EventLog : PlayerEvents {
    void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) override {
        Order += 's';
        BitrateKbps = Bitrate;
        RateHz = SampleRate;
        ChannelCount = Channels;
    }
    void OnTagInfo(const Text& Title, const Text& Artist, const Text&, const Text&, const Text&,
                   const Text&) override {
        Order += 't';
        Titles.push_back(Title);
        LastArtist = Artist;
    }
    void OnTrackLength(Long Length) override {
        Order += 'l';
        LengthMs = Length;
    }
    void OnVisData(Long VisData) override { Frames.push_back(VisData); }
    void OnPosition(Long Position) override {
        Order += 'p';
        Positions.push_back(Position);
    }

    /// Whether the track has told its end.
    [[nodiscard]] bool HasEnded() const { return !Positions.empty() && Positions.back() == LengthMs; }

    std::string Order; ///< A letter for each event but `OnVisData`: tag, stream, length, position.
    std::vector<Text> Titles;
    Text LastArtist;
    Integer BitrateKbps = 0;
    Long RateHz = 0;
    Integer ChannelCount = 0;
    Long LengthMs = -1;
    std::vector<Long> Positions;
    std::vector<Long> Frames;
};
