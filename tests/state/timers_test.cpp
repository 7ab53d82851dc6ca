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
    form.lblFilescroll.Caption.clear();
    EXPECT_EQ(schedule.NextDue(form, 120), std::nullopt);
    form.lblFilescroll.Caption = u"abc";
    EXPECT_EQ(schedule.NextDue(form, 130), 230) << "a timer starts anew when it can act again";
}

TEST(TimerSchedule, LateTicksMergeIntoOne) {
    Form form;
    TimerSchedule schedule;
    form.tmrSeekForward.Enabled = true;
    EXPECT_EQ(schedule.NextDue(form, 0), 200);
    EXPECT_EQ(schedule.TakeDue(form, 199), nullptr);
    EXPECT_EQ(schedule.TakeDue(form, 1050), &form.tmrSeekForward);
    EXPECT_EQ(schedule.TakeDue(form, 1050), nullptr);
    EXPECT_EQ(schedule.NextDue(form, 1050), 1200) << "the rhythm of the ticks stays";
}
