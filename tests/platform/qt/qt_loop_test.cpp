// The loop's promises: posts in order, waits that nest, timers that go on while a handler waits.
#include <csignal>
#include <thread>

#include "platform/qt/qt_signals.h"
#include "qt_fixture.h"

namespace {

using QtLoopTest = QtWindowTest;

// As a dialog waits: with events going on, but without our loop's own wait.
template<typename Done>
void WaitAsADialog(Done done) {
    while (!done())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

TEST_F(QtLoopTest, TasksOfOtherThreadsRunHereInTheirOrderAndOneThatWaitsStrandsNoOther) {
    std::string ran;
    std::thread other([&] {
        m_loop.Post([&] {
            while (ran.size() < 5)
                m_loop.Wait(0.005);
            ran += '6';
        });
        for (char number = '1'; number <= '5'; ++number)
            m_loop.Post([&, number] { ran += number; });
    });
    other.join();
    EXPECT_EQ(ran, "");
    m_loop.Wait(0);
    EXPECT_EQ(ran, "123456");
}

TEST_F(QtLoopTest, LaterTasksRunByTheirMomentsAndOneThatWaitsHoldsUpNoOther) {
    std::string ran;
    const std::int64_t startMs = m_loop.NowMs();
    m_loop.PostIn(3'600'000, [&] { ran += '5'; });
    m_loop.PostIn(30, [&] { ran += '3'; });
    m_loop.PostIn(10, [&] {
        ran += '2';
        WaitAsADialog([&] { return ran.size() == 3; });
        ran += '4';
    });
    m_loop.PostIn(-1, [&] { ran += '1'; });
    m_loop.Wait(0.05);
    EXPECT_GE(m_loop.NowMs(), startMs + 50);
    WaitAsADialog([&] { return ran.size() == 4; });
    EXPECT_EQ(ran, "1234");
}

TEST_F(QtLoopTest, TimersTickWhileATickItselfWaits) {
    int shows = 0, ticks = 0;
    m_loop.Attach(m_form, *this, [&] { ++shows; });
    m_loop.PostIn(3'600'000, [] {});
    m_ticked = [&](const Timer&) {
        if (ticks++ == 0) WaitAsADialog([&] { return ticks >= 4; });
        if (ticks >= 5) QCoreApplication::exit();
    };
    m_form.tmrSeekForward = {"", 5, true};
    m_loop.Run();
    EXPECT_GE(shows, 2) << "the form is shown before each sleep, a nested one's, too";
    m_form.tmrSeekForward.Enabled = false;
    m_loop.Wait(0);
    const int last = ticks;
    m_loop.Post([&] { m_form.tmrSeekForward.Enabled = true; });
    m_loop.Run();
    EXPECT_GT(ticks, last) << "a timer that a task enables";
}

TEST_F(QtLoopTest, HearsEachSignalToEnd) {
    const auto end = [&](int number) {
        if (WatchEndSignals([] { _exit(7); })) raise(number);
        m_loop.Wait(30);
    };
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        EXPECT_EXIT(end(number), testing::ExitedWithCode(7), "");
}
