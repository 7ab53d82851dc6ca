// The timers' schedule: what wakes the process, and when.
#include <gtest/gtest.h>

#include "state/timers.h"

TEST(TimerSchedule, NothingIsDueWhileNoTimerCanAct) {
    Form form;
    TimerSchedule schedule;
    EXPECT_EQ(schedule.NextDue(form, 0), std::nullopt);
    form.tmrScrollFiletitle.Enabled = true;
    EXPECT_EQ(schedule.NextDue(form, 0), std::nullopt) << "an empty title needs no tick";
    form.lblFilescroll.Caption = u"abc";
    EXPECT_EQ(schedule.NextDue(form, 50), 150);
    form.State = WindowState::Minimised;
    EXPECT_EQ(schedule.NextDue(form, 60), std::nullopt) << "nobody sees a minimised title move";
    form.State = WindowState::Normal;
    EXPECT_EQ(schedule.NextDue(form, 130), 230) << "a timer starts anew when it can act again";
}

TEST(TimerSchedule, ATickSharesAWakingAndKeepsItsRhythmFromThere) {
    const struct {
        std::int64_t WakesMs, DueMs;
    } rows[] = {{117, 117}, {118, 100}, {99, 100}, {100, 100}, {1000, 100}};
    for (const auto& row : rows) {
        Form form;
        TimerSchedule schedule;
        form.tmrSeekForward = {"", 100, true};
        EXPECT_EQ(schedule.TakeDue(form, 0), nullptr);
        EXPECT_EQ(schedule.NextDue(form, 0, row.WakesMs), row.DueMs) << row.WakesMs;
    }
    Form form;
    TimerSchedule schedule;
    form.tmrSeekForward = {"", 100, true};
    EXPECT_EQ(schedule.TakeDue(form, 0), nullptr);
    EXPECT_EQ(schedule.TakeDue(form, 82), nullptr);
    EXPECT_EQ(schedule.TakeDue(form, 83), &form.tmrSeekForward);
    EXPECT_EQ(schedule.NextDue(form, 83), 183);
    EXPECT_EQ(schedule.TakeDue(form, 200), &form.tmrSeekForward);
    EXPECT_EQ(schedule.NextDue(form, 200), 300);
    form.tmrSeekForward.IntervalMs = 8;
    EXPECT_EQ(schedule.TakeDue(form, 305), &form.tmrSeekForward) << "late, and by its own measure";
    EXPECT_EQ(schedule.NextDue(form, 305), 308);
    EXPECT_EQ(schedule.TakeDue(form, 305), nullptr) << "not for ever";
}

TEST(TimerSchedule, LateTicksMergeIntoOneAndTheRhythmStays) {
    Form form;
    TimerSchedule schedule;
    form.tmrScrollFiletitle.Enabled = form.tmrSeekForward.Enabled = true;
    form.lblFilescroll.Caption = u"abc";
    EXPECT_EQ(schedule.TakeDue(form, 0), nullptr) << "here their time begins";
    EXPECT_EQ(schedule.NextDue(form, 10), 100);
    form.tmrSeekBackward.Enabled = true;
    EXPECT_EQ(schedule.TakeDue(form, 50), nullptr);
    EXPECT_EQ(schedule.TakeDue(form, 100), &form.tmrScrollFiletitle) << "the other two aren't due";
    EXPECT_EQ(schedule.TakeDue(form, 100), nullptr);
    EXPECT_EQ(schedule.NextDue(form, 1050), 1050) << "late, but not in the past";
    for (const Timer* due : {&form.tmrSeekBackward, &form.tmrSeekForward, &form.tmrScrollFiletitle})
        EXPECT_EQ(schedule.TakeDue(form, 1050), due);
    EXPECT_EQ(schedule.TakeDue(form, 1050), nullptr);
    form.tmrScrollFiletitle.Enabled = form.tmrSeekForward.Enabled = false;
    EXPECT_EQ(schedule.NextDue(form, 1050), 1250);
}
