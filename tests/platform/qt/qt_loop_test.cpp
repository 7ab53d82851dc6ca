// The loop's promises: posts in order, waits that nest, timers that go on while a handler waits.
#include <QEventLoop>
#include <numeric>
#include <thread>

#include "qt_fixture.h"

namespace {

// A loop whose clock stands until the test moves it, and which counts its ticks.
class ClockedLoop : public QtLoop {
public:
    std::int64_t NowMs() const override { return Now; }
    std::int64_t Now = 1000;
    int Ticks = 0;

protected:
    void customEvent(QEvent* event) override {
        ++Ticks;
        QtLoop::customEvent(event);
    }
};

class TickHearer : public FormEvents {
public:
    void OnPointer(const PointerEvent&) override {}
    void OnTimer(const Timer& timer) override { Ticked(timer); }
    void OnClose() override {}

    std::function<void(const Timer&)> Ticked;
};

// As a dialog waits: in a loop of the toolkit's that knows nothing of ours.
template<typename Done>
bool WaitAsADialog(Done done) {
    QEventLoop dialog;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (done()) dialog.quit();
    });
    look.start(1);
    dialog.exec();
    return done();
}

} // namespace

TEST(QtLoop, TasksOfOtherThreadsRunHereInTheirOrderAndOneThatWaitsStrandsNoOther) {
    QtLoop loop;
    std::vector<int> ran, expected(100);
    std::iota(expected.begin(), expected.end(), 1);
    const std::thread::id here = std::this_thread::get_id();
    std::thread other([&] {
        for (int number = 0; number <= 100; ++number)
            loop.Post([&, number] {
                EXPECT_EQ(std::this_thread::get_id(), here);
                if (number > 0) ran.push_back(number);
                EXPECT_TRUE(number > 0 || WaitUntil(loop, [&] { return ran.size() == 100; }));
            });
    });
    other.join();
    EXPECT_TRUE(ran.empty());
    loop.Wait(0);
    EXPECT_EQ(ran, expected);
}

TEST(QtLoop, LaterTasksRunByTheirMomentsAndOneThatWaitsHoldsUpNoOther) {
    QtLoop loop;
    std::vector<int> ran;
    const std::int64_t startMs = loop.NowMs();
    loop.PostIn(3'600'000, [&] { ran.push_back(5); });
    loop.PostIn(30, [&] { ran.push_back(3); });
    loop.PostIn(10, [&] {
        EXPECT_GE(loop.NowMs(), startMs + 10);
        ran.push_back(1);
        EXPECT_TRUE(WaitAsADialog([&] { return ran.size() == 3; }));
        ran.push_back(4);
    });
    loop.PostIn(-1, [&] { ran.push_back(0); });
    EXPECT_TRUE(ran.empty());
    loop.Wait(0.05);
    EXPECT_GE(loop.NowMs(), startMs + 50);
    ASSERT_TRUE(WaitUntil(loop, [&] { return ran.size() == 4; }));
    EXPECT_EQ(ran, (std::vector<int>{0, 1, 3, 4}));
}

TEST(QtLoop, ATickThatComesBeforeItsTimeComesAgain) {
    ClockedLoop loop;
    Form form;
    TickHearer events;
    loop.Attach(form, events, [] {});
    std::vector<int> ran;
    for (const int delayMs : {8, 7, -5})
        loop.PostIn(delayMs, [&, delayMs] { ran.push_back(delayMs); });
    ASSERT_TRUE(WaitAsADialog([&] { return loop.Ticks >= 3; }));
    EXPECT_EQ(ran, std::vector<int>{-5});
    loop.Now += 7;
    ASSERT_TRUE(WaitAsADialog([&] { return ran.size() > 1; }));
    EXPECT_EQ(ran, (std::vector<int>{-5, 7}));
}

TEST(QtLoop, SleepsUntilSomethingIsDue) {
    ClockedLoop loop;
    loop.PostIn(3'600'000, [] {});
    loop.Wait(0.02);
    EXPECT_EQ(loop.Ticks, 0);
}

TEST(QtLoop, TimersTickWhileATickItselfWaits) {
    QtLoop loop;
    Form form;
    TickHearer events;
    int shows = 0, ticks = 0;
    loop.Attach(form, events, [&] { ++shows; });
    loop.PostIn(3'600'000, [] {});
    events.Ticked = [&](const Timer& timer) {
        EXPECT_EQ(&timer, &form.tmrSeekForward);
        if (ticks++ == 0) WaitAsADialog([&] { return ticks >= 4; });
        if (ticks >= 5) QCoreApplication::exit();
    };
    form.tmrSeekForward = {"", 5, true};
    loop.Run();
    EXPECT_EQ(shows, ticks) << "the form is shown after each tick";
    form.tmrSeekForward.Enabled = false;
    loop.Wait(0);
    const int last = ticks;
    loop.Wait(0.03);
    EXPECT_EQ(ticks, last);
    loop.Post([&] { form.tmrSeekForward.Enabled = true; });
    loop.Run();
    EXPECT_GT(ticks, last) << "a timer that a task enables";
}
