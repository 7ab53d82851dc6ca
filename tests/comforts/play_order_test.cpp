// Each decision about the next entry. A list is a letter for each entry, `x` for one that can be
// played; the way is its entries with a bar behind the one that plays.
#include "comforts/play_order.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

PlayWay WayOf(const std::string& words) {
    PlayWay way;
    std::istringstream rest(words);
    for (std::string word; rest >> word;) {
        if (word == "|") {
            way.At = way.Entries.size();
            continue;
        }
        const auto entry = Integer(std::stoi(word));
        way.Entries.push_back(entry);
        way.Heard.resize(std::max<std::size_t>(way.Heard.size(), std::size_t(entry) + 1));
        way.Heard[std::size_t(entry)] = true;
    }
    return way;
}

std::string Next(StepCause cause, int current, const std::string& list, const std::string& order,
                 const std::string& way, std::uint32_t random) {
    const auto has = [&](char letter) { return order.find(letter) != std::string::npos; };
    const auto goal =
        NextEntry({cause, Integer(current), Integer(list.size()), has('R'), has('S'),
                   [&](Integer entry) { return list[std::size_t(entry) - 1] == 'x'; }, random},
                  WayOf(way));
    if (!goal) return "none";
    return std::to_string(goal->Entry) + (goal->At ? "@" + std::to_string(goal->At) : "") +
           (goal->NewRound ? " anew" : "");
}

TEST(PlayOrder, EachDecision) {
    using enum StepCause;
    const struct {
        std::string Name;
        StepCause Cause;
        int Current;
        std::string List, Order, Way;
        std::uint32_t Random;
        std::string Goal;
    } rows[] = {
        {"the next one", Ended, 1, "xxx", "", "1 |", 0, "2"},
        {"what can't be played is passed over", Ended, 1, "x..x", "", "1 |", 0, "4"},
        {"the end of the list", Ended, 3, "xx.", "", "3 |", 0, "none"},
        {"repeat begins anew", Ended, 3, ".xx", "R", "3 |", 0, "2"},
        {"repeat of a single one", Ended, 2, ".x.", "R", "2 |", 0, "2"},
        {"nothing can be played", Ended, 1, "...", "RS", "1 |", 7, "1 anew"},
        {"the hand goes round the end", Forward, 3, "xxx", "", "3 |", 0, "1"},
        {"and round the beginning", Backward, 1, "xx.", "", "1 |", 0, "2"},
        {"before the first track", Forward, 0, ".xx", "", "|", 0, "2"},
        {"before it, backward", Backward, 0, "xx.", "", "|", 0, "2"},
        {"a single track plays on", Forward, 1, "x.", "", "1 |", 0, "none"},
        {"and stops backward", Backward, 1, "x.", "", "1 |", 0, "0"},
        {"an empty list", Backward, 0, "", "S", "|", 0, "none"},
        {"chance takes what wasn't heard", Ended, 1, "xx.xx", "S", "1 4 |", 3, "5"},
        {"all were heard", Ended, 2, "xx", "S", "1 2 |", 5, "none"},
        {"all were heard, repeat", Ended, 2, "xxx", "SR", "1 3 2 |", 1, "3 anew"},
        {"all were heard, the hand goes on", Forward, 2, "xx", "S", "1 2 |", 5, "1 anew"},
        {"back the way that was taken", Backward, 2, "xxxx", "S", "4 1 2 |", 9, "1@2"},
        {"and on along it", Ended, 1, "xxxx", "S", "4 1 | 2", 9, "2@3"},
        {"back before the way", Backward, 4, "xxxx", "S", "4 |", 9, "4@1"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Next(row.Cause, row.Current, row.List, row.Order, row.Way, row.Random), row.Goal)
            << row.Name;
}

TEST(PlayOrder, ShuffleHearsEachOfTheLargestListOnceAndKeepsNoMoreThanThat) {
    PlayWay way;
    StepQuestion question{StepCause::Ended, 0, 2500, false, true, [](Integer) { return true; }};
    int heard = 0;
    for (std::optional<StepGoal> goal; (goal = NextEntry(question, way)); ++heard) {
        EXPECT_FALSE(std::size_t(goal->Entry) < way.Heard.size() &&
                     way.Heard[std::size_t(goal->Entry)]);
        NoteStarted(way, goal->Entry, goal);
        question.Current = goal->Entry;
        question.Random = question.Random * 1664525 + 1013904223;
    }
    EXPECT_EQ(heard, 2500);
    NoteStarted(way, 7, std::nullopt);
    EXPECT_EQ(way.Entries.size(), 2500u);
}

} // namespace
