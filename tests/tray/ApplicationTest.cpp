// The run time's last word: a failure that no handler caught shows one box and ends the program.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <stdexcept>
#include <vector>

#include "Application.h"
#include "Failure.h"
#include "GuiApplication.h"

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

class RunTime : public ::testing::Test {
protected:
    void SetUp() override { EnsureGuiApplication(); }
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
    guard.Deliver([]() -> bool { throw std::out_of_range("vector"); });
    ASSERT_EQ(boxes.numbers.size(), 1u);
    EXPECT_EQ(boxes.numbers[0], 51);
    EXPECT_TRUE(boxes.descriptions[0].startsWith(QStringLiteral("Internal error")));
}

TEST_F(RunTime, TheScreenBoxReadsAsTheRunTimesBox) {
    // The words of the box that ScreenMessageBoxes shows.
    RuntimeError e(Overflow);
    EXPECT_EQ(RuntimeErrorText(e.Number(), e.Description()), QStringLiteral("Run-time error '6':\n\nOverflow"));
    EXPECT_EQ(RuntimeErrorText(3022, QStringLiteral("duplicate")),
              QStringLiteral("Run-time error '3022':\n\nduplicate"));
}

}  // namespace
