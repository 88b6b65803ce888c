// The drop-down list of the main window's days: filling it, reading it, choosing a line from the
// program and from the keyboard, and what its popup shows.
#include "Controls.h"

#include "Failures.h"
#include "GuiApplication.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

class ComboBoxTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        combo = std::make_unique<ComboBox>();
    }

    void Fill() {
        for (const QString& day : {u"01/02/2004"_s, u"02/02/2004"_s, u"03/02/2004"_s}) combo->AddItem(day);
    }

    std::unique_ptr<ComboBox> combo;
};

}  // namespace

TEST_F(ComboBoxTest, AnEmptyListHasNoLineAndNoText) {
    EXPECT_EQ(combo->ListCount(), 0);
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(combo->Text(), u""_s);
}

TEST_F(ComboBoxTest, TheFirstLineAddedBecomesTheCurrentOneAndTheOthersFollowInOrder) {
    QSignalSpy clicks(combo.get(), &ComboBox::Click);
    combo->AddItem(u"01/02/2004"_s);
    EXPECT_EQ(combo->ListIndex(), 0);
    EXPECT_EQ(combo->Text(), u"01/02/2004"_s);
    combo->AddItem(u"02/02/2004"_s);
    combo->AddItem(u"03/02/2004"_s);
    EXPECT_EQ(combo->ListCount(), 3);
    EXPECT_EQ(combo->ListIndex(), 0);
    EXPECT_EQ(combo->itemText(1), u"02/02/2004"_s);
    EXPECT_EQ(combo->itemText(2), u"03/02/2004"_s);
    // Adding lines is no choice of the user's.
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(ComboBoxTest, AddItemsAddsEachTextInTurnAsAddItemDoes) {
    QSignalSpy clicks(combo.get(), &ComboBox::Click);
    combo->AddItems({});
    EXPECT_EQ(combo->ListCount(), 0);
    EXPECT_EQ(combo->ListIndex(), -1);
    combo->AddItems({u"01/02/2004"_s, u"02/02/2004"_s});
    EXPECT_EQ(combo->ListIndex(), 0);
    combo->SetListIndex(1);
    combo->AddItems({u"03/02/2004"_s, u"04/02/2004"_s});
    EXPECT_EQ(combo->ListCount(), 4);
    EXPECT_EQ(combo->ListIndex(), 1);
    EXPECT_EQ(combo->itemText(3), u"04/02/2004"_s);
    EXPECT_EQ(combo->view()->model()->rowCount(), 4);
    EXPECT_EQ(clicks.count(), 1);  // SetListIndex's own
}

TEST_F(ComboBoxTest, SettingListIndexSelectsTheLineAndRaisesOneClick) {
    Fill();
    QSignalSpy clicks(combo.get(), &ComboBox::Click);
    combo->SetListIndex(2);
    EXPECT_EQ(combo->ListIndex(), 2);
    EXPECT_EQ(combo->Text(), u"03/02/2004"_s);
    EXPECT_EQ(clicks.count(), 1);
    // The same line again raises Click again.
    combo->SetListIndex(2);
    EXPECT_EQ(clicks.count(), 2);
    combo->SetListIndex(-1);
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(combo->Text(), u""_s);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(ComboBoxTest, AnIndexOutsideTheListIsAnInvalidPropertyValue) {
    Fill();
    EXPECT_EQ(ErrorOf([&] { combo->SetListIndex(3); }), InvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { combo->SetListIndex(-2); }), InvalidPropertyValue);
    EXPECT_EQ(combo->ListIndex(), 0);
}

TEST_F(ComboBoxTest, ClearEmptiesTheListWithoutAClickAndItFillsAgainFromItsFirstLine) {
    Fill();
    combo->SetListIndex(1);
    QSignalSpy clicks(combo.get(), &ComboBox::Click);
    combo->Clear();
    EXPECT_EQ(combo->ListCount(), 0);
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(clicks.count(), 0);
    combo->AddItem(u"04/02/2004"_s);
    EXPECT_EQ(combo->ListIndex(), 0);
    EXPECT_EQ(combo->Text(), u"04/02/2004"_s);
}

TEST_F(ComboBoxTest, TheUsersChoiceByTheKeyboardRaisesClick) {
    Fill();
    combo->show();
    QSignalSpy clicks(combo.get(), &ComboBox::Click);
    QTest::keyClick(combo.get(), Qt::Key_Down);
    EXPECT_EQ(combo->ListIndex(), 1);
    EXPECT_EQ(clicks.count(), 1);
    combo->hide();
}

TEST_F(ComboBoxTest, ThePopupShowsEveryLine) {
    Fill();
    const QAbstractItemModel* shown = combo->view()->model();
    ASSERT_EQ(shown->rowCount(), 3);
    EXPECT_EQ(shown->index(0, 0).data().toString(), u"01/02/2004"_s);
    EXPECT_EQ(shown->index(2, 0).data().toString(), u"03/02/2004"_s);
    combo->AddItem(u"04/02/2004"_s);
    EXPECT_EQ(shown->rowCount(), 4);
    EXPECT_EQ(shown->index(3, 0).data().toString(), u"04/02/2004"_s);
}
