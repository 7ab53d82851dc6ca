// Between the player and the desktop's media controls.
#pragma once

#include "comforts/commands.h"
#include "comforts/context.h"
#include "comforts/list_way.h"
#include "comforts/media_facts.h"
#include "platform/media_bus.h"

/// Knows what the desktop was told last.
class MediaDesk : public MediaRequests {
public:
    MediaDesk(ComfortContext& context, ListWay& way, MediaBus& bus)
        : m_context(context), m_way(way), m_bus(bus) {}

    /// Whether the player is on the bus.
    void Show(bool shown);
    /// Tells the desktop what has changed. Called before the window shows changes.
    void Look();

    /// What is done at the wish to end, and at that to come to the front.
    std::function<void()> Quit, Raise;
    /// Called when repeat or shuffle were set from outside.
    std::function<void()> OrderChanged;

    void OnRaise() override { Raise(); }
    void OnQuit() override { Quit(); }
    void OnNext() override;
    void OnPrevious() override;
    void OnPause() override;
    void OnPlayPause() override;
    void OnStop() override;
    void OnPlay() override;
    void OnSeek(std::int64_t distanceUs) override;
    void OnSetPosition(Integer track, std::int64_t placeUs) override;
    [[nodiscard]] MediaAnswer OnOpenUri(const std::string& address) override;
    void OnRepeat(bool repeat) override;
    void OnShuffle(bool shuffle) override;
    [[nodiscard]] MediaAnswer OnVolume(double volume) override;
    [[nodiscard]] const MediaFacts& Facts() override;
    [[nodiscard]] std::int64_t PositionUs() const override;

private:
    /// Differs whenever the facts can.
    struct Stamp {
        PlayerState State = PlayerState::Stopped;
        bool Tail = false, Steps = false, Repeat = false, Shuffle = false;
        int Starts = 0, Told = 0;
        Integer Track = 0, Count = 0;
        bool Loaded = false;

        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp StampNow() const;
    [[nodiscard]] MediaFacts FactsNow() const;
    void Carry(const SeekPlan& plan);

    ComfortContext& m_context;
    ListWay& m_way;
    MediaBus& m_bus;
    bool m_isShown = false;
    Stamp m_stamp;
    MediaFacts m_facts;
    int m_jumps = 0;
};
