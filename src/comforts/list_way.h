// Going through the list: what comes at the end of a track, and where the steps of the hand lead.
#pragma once

#include <optional>
#include <random>

#include "comforts/context.h"
#include "comforts/play_order.h"

/// Listens to the steps and to the ends of tracks, as long as it lives.
class ListWay {
public:
    /// From now on it is asked where steps go, and hears how tracks end.
    explicit ListWay(ComfortContext& context);

    /// Notes what was started. Called before the window shows changes.
    void Look();
    /// A step from one track to the next is under way.
    [[nodiscard]] bool Steps() const { return m_steps; }
    /// How many entries can be played.
    [[nodiscard]] Integer Playable();
    /// Starts the present entry, or the one that comes first; nothing happens if none can be
    /// played.
    void StartAny();
    /// From now on chance decides, or no longer does.
    void SetShuffle(bool shuffle);

private:
    [[nodiscard]] std::optional<StepGoal> Decide(StepCause cause);
    [[nodiscard]] std::optional<Integer> ChooseStep(StepDirection direction);
    [[nodiscard]] bool OnEnded();
    void OnUnplayable();
    /// Has the step to `goal` made soon, unless something else is started or stopped before.
    void GoOnSoon(const StepGoal& goal);
    void GoOn(int turn, const StepGoal& goal);
    void StopSoon();

    ComfortContext& m_context;
    PlayWay m_way;
    std::optional<StepGoal> m_forced;       ///< Where the step that is being made has to go.
    std::optional<StepGoal> m_goal;         ///< Where the last step led.
    StepCause m_cause = StepCause::Forward; ///< Of the last step by hand.
    bool m_steps = false;
    int m_starts = 0;   ///< Those that were noted.
    int m_failures = 0; ///< Tracks in a row that couldn't be played.
    Integer m_counted = 0, m_playable = 0;
    std::optional<std::minstd_rand> m_chance; ///< Made when first needed.
};
