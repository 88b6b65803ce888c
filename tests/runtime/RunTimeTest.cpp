// The run time's last word: a failure that no handler caught shows one box and ends the program,
// and it is caught where the event came in.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <stdexcept>
#include <vector>

#include "Failure.h"
#include "RunTime.h"

using namespace skelda;

namespace {

class Boxes : public MessageBoxes {
public:
    int MsgBox(const QString&, int, const QString&) override { return vbOK; }
    void RuntimeErrorBox(int number, const QString& description) override {
        numbers.push_back(number);
        descriptions.push_back(description);
    }
    std::vector<int> numbers;
    std::vector<QString> descriptions;
};

// An object whose event handler fails as a procedure without handling does.
class Failing : public QObject {
public:
    bool event(QEvent* e) override {
        if (e->type() == QEvent::User) throw RuntimeError(Overflow);
        return QObject::event(e);
    }
};

// A sender of one signal with one argument.
class Sender : public QObject {
    Q_OBJECT
public:
    void Raise(int value) { emit Raised(value); }
signals:
    void Raised(int value);
};

class RunTime : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (QCoreApplication::instance() == nullptr) {
            static int argc = 1;
            static char name[] = "tests_runtime";
            static char* argv[] = {name, nullptr};
            new QCoreApplication(argc, argv);
        }
    }
    Boxes boxes;
    std::vector<int> ended;
    RunTimeGuard guard{boxes, [this](int number) { ended.push_back(number); }};
};

TEST_F(RunTime, AnEventThatSucceedsGivesItsResult) {
    EXPECT_TRUE(guard.Deliver([] { return true; }));
    EXPECT_FALSE(guard.Deliver([] { return false; }));
    EXPECT_TRUE(boxes.numbers.empty());
    EXPECT_TRUE(ended.empty());
}

TEST_F(RunTime, AnUnhandledFailureShowsOneBoxWithItsNumberAndEndsTheProgram) {
    Failing object;
    QEvent event(QEvent::User);
    EXPECT_FALSE(guard.Deliver([&] { return QCoreApplication::instance()->notify(&object, &event); }));
    ASSERT_EQ(boxes.numbers.size(), 1u);
    EXPECT_EQ(boxes.numbers[0], 6);
    EXPECT_EQ(boxes.descriptions[0], QStringLiteral("Overflow"));
    EXPECT_EQ(ended, std::vector<int>{6});
    EXPECT_TRUE(guard.Failed());

    // A failure while the box is up, or after it, shows nothing more.
    EXPECT_FALSE(guard.Deliver([&] { return QCoreApplication::instance()->notify(&object, &event); }));
    EXPECT_EQ(boxes.numbers.size(), 1u);
    EXPECT_EQ(ended.size(), 1u);
}

TEST_F(RunTime, AFailureOfTheLibraryIsAnInternalError) {
    guard.Handle([] { throw std::out_of_range("vector"); });
    ASSERT_EQ(boxes.numbers.size(), 1u);
    EXPECT_EQ(boxes.numbers[0], 51);
    EXPECT_TRUE(boxes.descriptions[0].startsWith(QStringLiteral("Internal error")));
}

TEST_F(RunTime, TheScreenBoxReadsAsTheRunTimesBox) {
    // The words of the box that the screen's boxes show.
    RuntimeError e(Overflow);
    EXPECT_EQ(RuntimeErrorText(e.Number(), e.Description()), QStringLiteral("Run-time error '6':\n\nOverflow"));
    EXPECT_EQ(RuntimeErrorText(3022, QStringLiteral("duplicate")),
              QStringLiteral("Run-time error '3022':\n\nduplicate"));
}

TEST_F(RunTime, AHandlerConnectedThroughTheGuardFailsIntoTheBoxAndTheSignalReturns) {
    Sender sender;
    std::vector<int> seen;
    On(guard, &sender, &Sender::Raised, &sender, [&](int value) {
        seen.push_back(value);
        if (value == 9) throw RuntimeError(SubscriptOutOfRange);
    });
    bool returned = false;
    // The emission comes back to its sender normally: nothing travelled through the signal's
    // dispatch.
    EXPECT_NO_THROW({
        sender.Raise(9);
        returned = true;
    });
    EXPECT_TRUE(returned);
    EXPECT_EQ(seen, std::vector<int>{9});
    EXPECT_EQ(boxes.numbers, std::vector<int>{9});
    EXPECT_EQ(boxes.descriptions[0], QStringLiteral("Subscript out of range"));
    EXPECT_EQ(ended, std::vector<int>{9});
}

TEST_F(RunTime, AHandlerMayLeaveTheSignalsArgumentsAside) {
    Sender sender;
    int calls = 0;
    On(guard, &sender, &Sender::Raised, &sender, [&] { ++calls; });
    sender.Raise(1);
    sender.Raise(2);
    EXPECT_EQ(calls, 2);
    EXPECT_TRUE(boxes.numbers.empty());
}

TEST_F(RunTime, ATimersTickThatFailsReachesTheBoxFromTheEventLoop) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.setInterval(0);
    On(guard, &timer, &QTimer::timeout, &timer, [] { throw RuntimeError(InvalidUseOfNull); });
    timer.start();
    // The tick comes from the event loop; if the failure travelled through it, processEvents
    // would throw here.
    EXPECT_NO_THROW({
        for (int i = 0; i < 50 && ended.empty(); ++i) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    });
    EXPECT_EQ(ended, std::vector<int>{94});
}

TEST_F(RunTime, AFailureOfAnEventRaisedByAStatementIsThatStatementsFailure) {
    Sender sender;
    On(guard, &sender, &Sender::Raised, &sender, [](int) { throw RuntimeError(SubscriptOutOfRange); });
    // Not through the box: out of the statement that raised the event, after the dispatch.
    try {
        RaiseEvent([&] { sender.Raise(1); });
        ADD_FAILURE() << "the raised event's failure should come out of RaiseEvent";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), int(SubscriptOutOfRange));
    }
    EXPECT_TRUE(boxes.numbers.empty());
    EXPECT_TRUE(ended.empty());
    // The next event from outside goes to the box again.
    sender.Raise(2);
    EXPECT_EQ(boxes.numbers, std::vector<int>{9});
}

TEST_F(RunTime, AnEventFromOutsideThatComesDuringARaisedHandlerGoesToTheBox) {
    Sender raised;
    Sender outside;
    On(guard, &outside, &Sender::Raised, &outside, [](int) { throw RuntimeError(Overflow); });
    On(guard, &raised, &Sender::Raised, &raised, [&](int) { outside.Raise(0); });
    EXPECT_NO_THROW(RaiseEvent([&] { raised.Raise(0); }));
    EXPECT_EQ(boxes.numbers, std::vector<int>{6});
}

}  // namespace

#include "RunTimeTest.moc"
