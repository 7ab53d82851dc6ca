// The loop's promises: posts in order, waits that nest, timers that go on while a handler waits.
#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

#include "platform/qt/qt_loop.h"

namespace {

class TickCounter : public FormEvents {
public:
    void OnPointer(const PointerEvent&) override {}
    void OnTimer(const Timer& timer) override {
        ++Ticks;
        if (WhileTicking) WhileTicking(timer);
    }
    void OnClose() override {}

    int Ticks = 0;
    std::function<void(const Timer&)> WhileTicking;
};

// Waits in small pieces until `done`; gives up after twenty seconds.
template<typename Done>
bool WaitUntil(QtLoop& loop, Done done) {
    for (int piece = 0; piece < 2000 && !done(); ++piece)
        loop.Wait(0.01);
    return done();
}

} // namespace

TEST(QtLoop, TasksOfOtherThreadsRunHereInTheirOrder) {
    QtLoop loop;
    std::vector<int> ran;
    const std::thread::id here = std::this_thread::get_id();
    std::thread other([&] {
        for (int number = 0; number < 100; ++number)
            loop.Post([&, number] {
                EXPECT_EQ(std::this_thread::get_id(), here);
                ran.push_back(number);
            });
    });
    other.join();
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(WaitUntil(loop, [&] { return ran.size() == 100; }));
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
}

TEST(QtLoop, ATaskThatWaitsStrandsNoOther) {
    QtLoop loop;
    std::vector<int> ran;
    loop.Post([&] {
        ran.push_back(1);
        EXPECT_TRUE(WaitUntil(loop, [&] { return ran.size() == 3; }));
        ran.push_back(4);
    });
    loop.Post([&] { ran.push_back(2); });
    loop.Post([&] { ran.push_back(3); });
    ASSERT_TRUE(WaitUntil(loop, [&] { return ran.size() == 4; }));
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3, 4}));
}

TEST(QtLoop, LaterTasksRunByTheirMomentsAndOneThatWaitsHoldsUpNoOther) {
    QtLoop loop;
    std::vector<int> ran;
    const std::int64_t startMs = loop.NowMs();
    loop.PostIn(30, [&] { ran.push_back(3); });
    loop.PostIn(10, [&] {
        EXPECT_GE(loop.NowMs(), startMs + 10);
        ran.push_back(1);
        EXPECT_TRUE(WaitUntil(loop, [&] { return ran.size() == 3; }));
        ran.push_back(4);
    });
    loop.PostIn(-1, [&] { ran.push_back(0); });
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(WaitUntil(loop, [&] { return ran.size() == 4; }));
    EXPECT_EQ(ran, (std::vector<int>{0, 1, 3, 4}));
}

TEST(QtLoop, TimersTickWhileATickItselfWaits) {
    QtLoop loop;
    Form form;
    TickCounter events;
    int shows = 0;
    loop.Attach(form, events, [&] { ++shows; });
    form.tmrSeekForward.Enabled = true;
    form.tmrSeekForward.IntervalMs = 5;
    bool nested = false;
    events.WhileTicking = [&](const Timer& timer) {
        EXPECT_EQ(&timer, &form.tmrSeekForward);
        if (std::exchange(nested, true)) return;
        const int before = events.Ticks;
        EXPECT_TRUE(WaitUntil(loop, [&] { return events.Ticks >= before + 3; }));
    };
    ASSERT_TRUE(WaitUntil(loop, [&] { return events.Ticks >= 5; }));
    EXPECT_GE(shows, 5) << "the form is shown after each tick";
    form.tmrSeekForward.Enabled = false;
    loop.Wait(0);
    const int last = events.Ticks;
    loop.Wait(0.03);
    EXPECT_EQ(events.Ticks, last);
}
