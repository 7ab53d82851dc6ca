// What is decided at the end of a track is done by a command of its own, since the player's event
// has to return. A start is noted before the next thing happens, however soon that is.
#include "comforts/list_way.h"

#include <utility>

#include "playback/navigation.h"
#include "playback/transport.h"

ListWay::ListWay(ComfortContext& context) : m_context(context) {
    context.State.Listeners.ChooseStep = [this](StepDirection direction) {
        return ChooseStep(direction);
    };
    context.Ear.Ended = [this] { return OnEnded(); };
    context.Ear.Unplayable = [this] { OnUnplayable(); };
}

std::optional<StepGoal> ListWay::Decide(StepCause cause) {
    const Velora& velora = m_context.State;
    StepQuestion question{cause,
                          velora.CurrentTrack,
                          velora.Count,
                          m_context.Settings.Repeat,
                          m_context.Settings.Shuffle,
                          [&](Integer entry) { return IsPlayable(velora.MediaList[entry]); },
                          0};
    if (question.Shuffle) {
        if (!m_chance) m_chance.emplace(std::random_device{}());
        question.Random = static_cast<std::uint32_t>((*m_chance)());
    }
    return NextEntry(question, m_way);
}

std::optional<Integer> ListWay::ChooseStep(StepDirection direction) {
    Look();
    const bool wasOn = m_context.State.PlayerState != PlayerState::Stopped || IsInTail(m_context);
    std::optional<StepGoal> goal = std::exchange(m_forced, std::nullopt);
    if (!goal) {
        m_cause = direction == StepDirection::Forward ? StepCause::Forward : StepCause::Backward;
        goal = Decide(m_cause);
        m_failures = 0;
    }
    if (!goal) return std::nullopt;
    m_goal = goal;
    m_steps = goal->Entry != 0 && (m_steps || wasOn);
    return goal->Entry;
}

bool ListWay::OnEnded() {
    Look();
    if (!m_context.Settings.GoOn || IsSeeking(m_context.State)) return false;
    const std::optional<StepGoal> goal = Decide(StepCause::Ended);
    if (!goal) return false;
    GoOnSoon(*goal);
    // The step resets the display; twice would be a longer gap.
    return m_context.State.PlayerState == PlayerState::Playing;
}

void ListWay::OnUnplayable() {
    Look();
    if (!m_context.Settings.GoOn) return;
    const bool back = m_cause == StepCause::Backward;
    const std::optional<StepGoal> goal =
        ++m_failures > Playable() ? std::nullopt
                                  : Decide(back ? StepCause::Backward : StepCause::Ended);
    if (goal && goal->Entry != 0)
        GoOnSoon(*goal);
    else
        StopSoon();
}

void ListWay::GoOnSoon(const StepGoal& goal) {
    m_steps = true;
    m_context.Queue.AddOwn([this, turn = m_context.Ear.Notes().Turns, goal] { GoOn(turn, goal); });
}

void ListWay::GoOn(int turn, const StepGoal& goal) {
    if (m_context.Ear.Notes().Turns != turn || IsSeeking(m_context.State)) {
        m_steps = false;
        return;
    }
    m_forced = goal;
    NextTrack(m_context.State);
    m_forced.reset();
}

void ListWay::StopSoon() {
    m_failures = 0;
    m_context.Queue.AddOwn([this, turn = m_context.Ear.Notes().Turns] {
        if (m_context.Ear.Notes().Turns == turn) StopTrack(m_context.State);
    });
}

void ListWay::Look() {
    const TrackNotes& notes = m_context.Ear.Notes();
    if (notes.IsHeard) {
        m_failures = 0;
        m_cause = StepCause::Forward;
    }
    if (notes.Starts == m_starts) return;
    m_starts = notes.Starts;
    m_steps = false;
    NoteStarted(m_way, m_context.State.CurrentTrack, std::exchange(m_goal, std::nullopt));
}

Integer ListWay::Playable() {
    for (; m_counted < m_context.State.Count; ++m_counted)
        if (IsPlayable(m_context.State.MediaList[m_counted + 1])) ++m_playable;
    return m_playable;
}

void ListWay::StartAny() {
    Velora& velora = m_context.State;
    if (velora.CurrentTrack != 0) return StartTrack(velora, velora.CurrentTrack);
    if (const std::optional<StepGoal> goal = Decide(StepCause::Forward))
        StartTrack(velora, goal->Entry);
}

void ListWay::SetShuffle(bool shuffle) {
    if (shuffle && !m_context.Settings.Shuffle) BeginRound(m_way, m_context.State.CurrentTrack);
    m_context.Settings.Shuffle = shuffle;
}
