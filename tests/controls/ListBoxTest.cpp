// The list box's simple multiple selection, driven with the mouse and the keyboard: a click
// toggles the line under it and raises one Click, the index only moves the focus, and setting
// Selected raises Click. A plain list keeps its single selection.
#include "Controls.h"

#include "Failures.h"
#include "GuiApplication.h"

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
