// The list box's simple multiple selection, driven with the mouse and the keyboard: a click
// toggles the line under it and raises one Click, the index only moves the focus, and setting
// Selected raises Click. A plain list keeps its single selection.
#include "Controls.h"

#include "Failures.h"
#include "GuiApplication.h"
#include "Printing.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace skelda;

namespace {

class MultiSelectList : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        list = std::make_unique<ListBox>();
        list->SetMultiSelect(vbMultiSelectSimple);
        for (const char* line : {"Lille", "Lyon", "Nice"}) list->AddItem(QString::fromLatin1(line));
        list->resize(200, 120);
        list->show();
    }

    void ClickLine(int line) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(line)).center());
    }

    std::unique_ptr<ListBox> list;
};

TEST_F(MultiSelectList, AClickTogglesTheLineUnderItAndRaisesOneClick) {
    QSignalSpy clicks(list.get(), &ListBox::Click);
    ClickLine(1);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_TRUE(list->Selected(1));
    ClickLine(2);
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_TRUE(list->Selected(1));
    EXPECT_TRUE(list->Selected(2));
    ClickLine(1);
    EXPECT_EQ(clicks.count(), 3);
    EXPECT_FALSE(list->Selected(1));
    EXPECT_TRUE(list->Selected(2));
    EXPECT_EQ(list->ListIndex(), 1);  // the focus is on the line clicked last
}

TEST_F(MultiSelectList, TheSpaceBarTogglesTheLineThatHasTheFocus) {
    ClickLine(0);
    QSignalSpy clicks(list.get(), &ListBox::Click);
    QTest::keyClick(list.get(), Qt::Key_Down);
    EXPECT_EQ(list->ListIndex(), 1);
    EXPECT_FALSE(list->Selected(1));
    EXPECT_EQ(clicks.count(), 0);  // moving the focus changes no selection
    QTest::keyClick(list.get(), Qt::Key_Space);
    EXPECT_TRUE(list->Selected(1));
    EXPECT_TRUE(list->Selected(0));
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(MultiSelectList, TheFirstLineHasTheFocusUntilTheUserMovesIt) {
    EXPECT_EQ(list->ListIndex(), 0);
    EXPECT_FALSE(list->Selected(0));
}

TEST_F(MultiSelectList, SettingSelectedRaisesClickChangedOrNot) {
    QSignalSpy clicks(list.get(), &ListBox::Click);
    list->SetSelected(2, true);
    list->SetSelected(2, true);
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_TRUE(list->Selected(2));
    EXPECT_FALSE(list->Selected(0));
    list->SetSelected(2, false);
    EXPECT_EQ(clicks.count(), 3);
    EXPECT_FALSE(list->Selected(2));
    EXPECT_EQ(test::ErrorOf([&] { list->SetSelected(3, true); }), SubscriptOutOfRange);
}

TEST_F(MultiSelectList, SettingListIndexMovesTheFocusAndKeepsTheSelection) {
    list->SetSelected(0, true);
    QSignalSpy clicks(list.get(), &ListBox::Click);
    list->SetListIndex(2);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(list->ListIndex(), 2);
    EXPECT_TRUE(list->Selected(0));
    EXPECT_FALSE(list->Selected(2));
}

TEST_F(MultiSelectList, ADoubleClickRaisesClickForItsFirstPressThenDblClick) {
    QStringList events;
    QObject::connect(list.get(), &ListBox::Click, [&] { events.append(QStringLiteral("Click")); });
    QObject::connect(list.get(), &ListBox::DblClick, [&] { events.append(QStringLiteral("DblClick")); });
    const QPoint at = list->visualItemRect(list->item(2)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(events, QStringList({QStringLiteral("Click"), QStringLiteral("DblClick")}));
    EXPECT_TRUE(list->Selected(2));
    EXPECT_EQ(list->ListIndex(), 2);
}

TEST_F(MultiSelectList, ClearingRaisesNoClick) {
    ClickLine(0);
    QSignalSpy clicks(list.get(), &ListBox::Click);
    list->Clear();
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(list->ListCount(), 0);
}

TEST(ListBoxMultiSelect, OnlyNoneAndSimpleAreKnown) {
    EnsureGuiApplication();
    ListBox list;
    EXPECT_EQ(list.MultiSelect(), vbMultiSelectNone);
    EXPECT_EQ(test::ErrorOf([&] { list.SetMultiSelect(2); }), InvalidPropertyValue);
    EXPECT_EQ(list.MultiSelect(), vbMultiSelectNone);
}

TEST(ListBoxMultiSelect, APlainListKeepsOneSelectedLine) {
    EnsureGuiApplication();
    ListBox list;
    for (const char* line : {"Lille", "Lyon"}) list.AddItem(QString::fromLatin1(line));
    list.resize(200, 80);
    list.show();
    QSignalSpy clicks(&list, &ListBox::Click);
    for (int line : {0, 1})
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(line)).center());
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_FALSE(list.Selected(0));
    EXPECT_TRUE(list.Selected(1));
    EXPECT_EQ(list.ListIndex(), 1);
}

}  // namespace

namespace {

// A plain list of three lines on the screen, clicked with the real mouse at a line's rectangle.
class PlainList : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        list = std::make_unique<ListBox>();
        for (const char* line : {"Lille", "Lyon", "Nice"}) list->AddItem(QString::fromLatin1(line));
        list->resize(200, 120);
        list->show();
        QObject::connect(list.get(), &ListBox::Click, [this] { events.append(QStringLiteral("Click")); });
        QObject::connect(list.get(), &ListBox::DblClick, [this] { events.append(QStringLiteral("DblClick")); });
        QObject::connect(list.get(), &ListBox::MouseDown, [this](int button, int, double, double) {
            events.append(QStringLiteral("MouseDown %1").arg(button));
        });
    }

    QPoint LineCentre(int line) const { return list->visualItemRect(list->item(line)).center(); }

    // A double click as the platform delivers it: a press and a release, then the second press
    // as a double click, and its release.
    void DoubleClick(Qt::MouseButton button, QPoint at) {
        QTest::mouseClick(list->viewport(), button, {}, at);
        QTest::mouseDClick(list->viewport(), button, {}, at);
        QTest::mouseRelease(list->viewport(), button, {}, at);
    }

    std::unique_ptr<ListBox> list;
    QStringList events;
};

TEST_F(PlainList, EveryClickOfALineRaisesClickAlsoOnTheLineAlreadySelected) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LineCentre(1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LineCentre(1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LineCentre(1));
    EXPECT_EQ(events, QStringList({"Click", "MouseDown 1", "Click", "MouseDown 1", "Click", "MouseDown 1"}));
    EXPECT_EQ(list->ListIndex(), 1);
    EXPECT_TRUE(list->Selected(1));
}

TEST_F(PlainList, AClickOnTheLineSelectedByCodeRaisesClick) {
    list->SetListIndex(2);
    events.clear();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LineCentre(2));
    EXPECT_EQ(events, QStringList({"Click", "MouseDown 1"}));
}

TEST_F(PlainList, AClickBelowTheLastLineRaisesNoClick) {
    list->SetListIndex(0);
    events.clear();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, list->viewport()->height() - 3));
    EXPECT_EQ(events, QStringList({"MouseDown 1"}));
}

TEST_F(PlainList, ADoubleClickOnTheSelectedLineRaisesOneClickThenDblClick) {
    list->SetListIndex(1);
    events.clear();
    DoubleClick(Qt::LeftButton, LineCentre(1));
    EXPECT_EQ(events, QStringList({"Click", "MouseDown 1", "DblClick"}));
}

TEST_F(PlainList, ADoubleClickOnAnotherLineRaisesOneClickThenDblClick) {
    list->SetListIndex(0);
    events.clear();
    DoubleClick(Qt::LeftButton, LineCentre(2));
    EXPECT_EQ(events, QStringList({"Click", "MouseDown 1", "DblClick"}));
    EXPECT_EQ(list->ListIndex(), 2);
}

TEST_F(PlainList, AMoveByTheKeyboardRaisesClick) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LineCentre(0));
    events.clear();
    QTest::keyClick(list.get(), Qt::Key_Down);
    EXPECT_EQ(events, QStringList({"Click"}));
    EXPECT_EQ(list->ListIndex(), 1);
}

TEST_F(PlainList, ARightPressSelectsNothingAndRaisesOnlyMouseDown) {
    list->SetListIndex(0);
    events.clear();
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, LineCentre(2));
    EXPECT_EQ(events, QStringList({"MouseDown 2"}));
    // A double click of the right button: its second press raises nothing either.
    DoubleClick(Qt::RightButton, LineCentre(2));
    EXPECT_EQ(events, QStringList({"MouseDown 2", "MouseDown 2"}));
    EXPECT_EQ(list->ListIndex(), 0);
    EXPECT_TRUE(list->Selected(0));
    EXPECT_FALSE(list->Selected(2));
}

TEST_F(PlainList, AMiddlePressSelectsNothing) {
    list->SetListIndex(0);
    events.clear();
    QTest::mouseClick(list->viewport(), Qt::MiddleButton, {}, LineCentre(1));
    EXPECT_EQ(events, QStringList({"MouseDown 4"}));
    EXPECT_EQ(list->ListIndex(), 0);
}

}  // namespace
