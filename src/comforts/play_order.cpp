// Chance comes in as a number, so that each decision can be stated.
#include "comforts/play_order.h"

namespace {

constexpr std::size_t kLongestWay = 2500;

bool IsHeard(const PlayWay& way, Integer entry) {
    const auto place = static_cast<std::size_t>(entry);
    return place < way.Heard.size() && way.Heard[place];
}

// The first that can be played among the `most` entries beside `from`, round the list's ends.
std::optional<StepGoal> Beside(const StepQuestion& question, int direction, int most) {
    int entry = question.Current;
    if (entry == 0 && direction < 0) entry = question.Count + 1;
    for (int step = 0; step < most; ++step) {
        entry += direction;
        if (entry > question.Count) entry = 1;
        if (entry < 1) entry = question.Count;
        if (question.IsPlayable(static_cast<Integer>(entry)))
            return StepGoal{static_cast<Integer>(entry)};
    }
    return std::nullopt;
}

std::optional<StepGoal> InOrder(const StepQuestion& question) {
    const int all = question.Count, current = question.Current;
    const int others = current == 0 ? all : all - 1;
    switch (question.Cause) {
    case StepCause::Ended:
        return Beside(question, 1, question.Repeat ? all : all - current);
    case StepCause::Forward:
        return Beside(question, 1, others);
    case StepCause::Backward:
        if (all == 0) return std::nullopt;
        return Beside(question, -1, others).value_or(StepGoal{});
    }
    return std::nullopt;
}

// One of those that can be played and pass `counts`, each as likely as the others.
std::optional<StepGoal> AtRandom(const StepQuestion& question,
                                 const std::function<bool(Integer)>& counts) {
    std::vector<Integer> entries;
    for (int entry = 1; entry <= question.Count; ++entry)
        if (counts(static_cast<Integer>(entry)) && question.IsPlayable(static_cast<Integer>(entry)))
            entries.push_back(static_cast<Integer>(entry));
    if (entries.empty()) return std::nullopt;
    return StepGoal{entries[question.Random % entries.size()]};
}

std::optional<StepGoal> Shuffled(const StepQuestion& question, const PlayWay& way) {
    if (question.Cause == StepCause::Backward) {
        if (way.At > 1) return StepGoal{way.Entries[way.At - 2], way.At - 1};
        if (question.Count == 0) return std::nullopt;
        return StepGoal{question.Current, way.At};
    }
    if (way.At < way.Entries.size()) return StepGoal{way.Entries[way.At], way.At + 1};
    if (const auto goal = AtRandom(question, [&](Integer entry) { return !IsHeard(way, entry); }))
        return goal;
    if (question.Cause == StepCause::Ended && !question.Repeat) return std::nullopt;
    std::optional<StepGoal> goal =
        AtRandom(question, [&](Integer entry) { return entry != question.Current; });
    if (!goal && question.Cause == StepCause::Ended && question.Current != 0)
        goal = StepGoal{question.Current};
    if (goal) goal->NewRound = true;
    return goal;
}

} // namespace

std::optional<StepGoal> NextEntry(const StepQuestion& question, const PlayWay& way) {
    return question.Shuffle ? Shuffled(question, way) : InOrder(question);
}

void NoteStarted(PlayWay& way, Integer entry, const std::optional<StepGoal>& goal) {
    if (goal && goal->NewRound) way.Heard.clear();
    if (goal && goal->Entry == entry && goal->At > 0) {
        way.At = goal->At;
    } else {
        way.Entries.resize(way.At);
        if (way.Entries.size() == kLongestWay) way.Entries.erase(way.Entries.begin());
        way.Entries.push_back(entry);
        way.At = way.Entries.size();
    }
    if (way.Heard.size() <= static_cast<std::size_t>(entry))
        way.Heard.resize(static_cast<std::size_t>(entry) + 1);
    way.Heard[static_cast<std::size_t>(entry)] = true;
}

void BeginRound(PlayWay& way, Integer current) {
    way.Heard.assign(static_cast<std::size_t>(current) + 1, false);
    if (current > 0) way.Heard[static_cast<std::size_t>(current)] = true;
}
