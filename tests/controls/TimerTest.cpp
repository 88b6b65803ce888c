// The timer control: Enabled and Interval, and the one rule the poll cycle's time-out depends on,
// that enabling a timer that already runs leaves its count alone.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "Controls.h"
#include "GuiApplication.h"

using namespace skelda;

namespace {

class TimerControl : public ::testing::Test {
protected:
    void SetUp() override { EnsureGuiApplication(); }
};

TEST_F(TimerControl, EnablingARunningTimerLeavesItsCountAlone) {
    // Enabled again every 100 ms, a timer of 400 ms still ticks every 400 ms; one that started
    // over at each enabling would never tick at all.
    Timer timer(400, true);
    QSignalSpy ticks(&timer, &Timer::Tick);
    QTimer again;
    QObject::connect(&again, &QTimer::timeout, &timer, [&] { timer.SetEnabled(true); });
    again.start(100);
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks.count() >= 2; }, 5000));
    again.stop();
    EXPECT_TRUE(timer.Enabled());
    EXPECT_GE(clock.elapsed(), 700);  // two full intervals, none cut short
}

TEST_F(TimerControl, AStoppedTimerEnabledAgainStartsAFullInterval) {
    Timer timer(300, false);
    QSignalSpy ticks(&timer, &Timer::Tick);
    QElapsedTimer clock;
    clock.start();
    timer.SetEnabled(true);
    ASSERT_TRUE(ticks.wait(5000));
    EXPECT_GE(clock.elapsed(), 250);  // a whole interval, give or take the timer's coarseness
    timer.SetEnabled(false);
    EXPECT_FALSE(timer.Enabled());
}

TEST_F(TimerControl, FireDeliversOneTickNowWhateverTheState) {
    Timer timer(60000, false);
    QSignalSpy ticks(&timer, &Timer::Tick);
    timer.Fire();
    EXPECT_EQ(ticks.count(), 1);
    EXPECT_EQ(timer.Interval(), 60000);
    timer.SetInterval(1000);
    EXPECT_EQ(timer.Interval(), 1000);
    EXPECT_FALSE(timer.Enabled());
}

}  // namespace
