// The hand-entry form, driven headless through its controls, on a real database file.
#include "FormMetaf.h"

#include "GuiApplication.h"
#include "NotificationArea.h"
#include "RunTime.h"
#include "Seams.h"
#include "TestDatabase.h"
#include "Window.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace skelda;
using skelda::test::Airport;
using skelda::test::TestDatabase;

namespace {

const QString Paris = QStringLiteral("LFPG 021030Z 31015G25KT 9999 FEW016 22/06 Q1016");
const QString Blagnac = QStringLiteral("LFBO 021100Z 22013KT 9999 SCT030 20/05 Q1015");

class FormMetafTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(db.IsValid());
        ASSERT_TRUE(workDir.isValid());
        previous = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(workDir.path()));
        ASSERT_TRUE(QDir().mkdir(QStringLiteral("log")));
        form = std::make_unique<FormMetaf>(services);
        text1 = form->findChild<QPlainTextEdit*>(QStringLiteral("Text1"));
        command2 = form->findChild<QPushButton*>(QStringLiteral("Command2"));
        ASSERT_NE(text1, nullptr);
        ASSERT_NE(command2, nullptr);
    }
    void TearDown() override {
        form.reset();
        QDir::setCurrent(previous);
    }

    void Lire(const QString& text) {
        form->SetText1Text(text);
        QTest::mouseClick(command2, Qt::LeftButton);
    }

    // The places of the stored rows, in the order of storing.
    QStringList Places() const {
        QStringList places;
        const int n = db.Count(QStringLiteral("Zefir"));
        for (int i = 0; i < n; ++i)
            places.append(
                db.Value(QStringLiteral("SELECT lieu FROM Zefir ORDER BY rowid LIMIT 1 OFFSET %1").arg(i)).toString());
        return places;
    }

    QString LogText() const {
        QFile f(workDir.filePath(QStringLiteral("log/log.txt")));
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll());
    }

    TestDatabase db{{Airport("LFPG", "Paris", "Charles de Gaulle"), Airport("LFTH", "Toulouse", "Francazal"),
                     Airport("LFBO", "Toulouse", "Blagnac")}};
    QTemporaryDir workDir;
    QString previous;
    FixedClock clock{QDateTime(QDate(2004, 11, 15), QTime(14, 30, 5))};
    test::ScriptedRandom random;
    test::RecordingBoxes boxes;
    // A failure that no handler catches ends here, in the box, instead of ending the test program.
    std::vector<int> runTimeEnds;
    RunTimeGuard guard{boxes, [this](int number) { runTimeEnds.push_back(number); }};
    test::TestPrinter printer;
    test::CountingProcessEnd processEnd;
    DesktopNotificationArea notificationArea;
    Services services{clock, random, boxes, guard, {}, {}, {}, db.Folder(), printer, processEnd, notificationArea};
    std::unique_ptr<FormMetaf> form;
    QPlainTextEdit* text1 = nullptr;
    QPushButton* command2 = nullptr;
};

}  // namespace

TEST_F(FormMetafTest, LoadingShowsTheFormOnTopWithItsCaptionsAndThePrompt) {
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Reading a Metaf"));
    auto* label1 = form->findChild<QLabel*>(QStringLiteral("Label1"));
    ASSERT_NE(label1, nullptr);
    EXPECT_EQ(label1->text(), QStringLiteral("METAF"));
    EXPECT_EQ(command2->text(), QStringLiteral("Lire"));
    EXPECT_EQ(text1->toPlainText(), QStringLiteral("Saisir le message METAF..."));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(form->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(FormMetafTest, TheUntouchedPromptStoresNothing) {
    QTest::mouseClick(command2, Qt::LeftButton);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 0);
    EXPECT_EQ(LogText(), QString());
}

TEST_F(FormMetafTest, TwoLinesEachClosedByALineEndStoreTwoRowsInOrder) {
    Lire(Blagnac + QStringLiteral("\r\n") + Paris + QStringLiteral("\r\n"));
    EXPECT_EQ(Places(),
              (QStringList{QStringLiteral("Toulouse - Blagnac"), QStringLiteral("Paris - Charles de Gaulle")}));
}

TEST_F(FormMetafTest, TwoLinesWithNoLineEndBehindTheSecondStoreOnlyTheFirst) {
    Lire(Blagnac + QStringLiteral("\r\n") + Paris);
    EXPECT_EQ(Places(), QStringList{QStringLiteral("Toulouse - Blagnac")});
}

TEST_F(FormMetafTest, ASingleLineWithNoLineEndStoresNothing) {
    Lire(Paris);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 0);
}

TEST_F(FormMetafTest, AnEmptyLineBetweenTwoMessagesStoresTheSampleWithAnEmptyMetaf) {
    Lire(Blagnac + QStringLiteral("\r\n\r\n") + Paris + QStringLiteral("\r\n"));
    EXPECT_EQ(Places(), (QStringList{QStringLiteral("Toulouse - Blagnac"), QStringLiteral("Toulouse - Francazal"),
                                     QStringLiteral("Paris - Charles de Gaulle")}));
    EXPECT_EQ(db.Value(QStringLiteral("SELECT METAF FROM Zefir WHERE lieu = 'Toulouse - Francazal'")).toString(),
              QString());
    EXPECT_EQ(db.Value(QStringLiteral("SELECT heurerelevé FROM Zefir WHERE lieu = 'Toulouse - Francazal'")).toString(),
              QStringLiteral("10:00:00"));
}

TEST_F(FormMetafTest, ALineForAnUnknownStationStoresNothingAndTheLoopGoesOn) {
    Lire(QStringLiteral("KJFK 021051Z 22013KT 10SM FEW250 22/06 A2992\r\n") + Paris + QStringLiteral("\r\n"));
    EXPECT_EQ(Places(), QStringList{QStringLiteral("Paris - Charles de Gaulle")});
    EXPECT_EQ(LogText(), QString());
}

TEST_F(FormMetafTest, ARepeatedLineIsLoggedAndTheUserIsToldNothing) {
    const QString text = Paris + QStringLiteral("\r\n") + Paris + QStringLiteral("\r\n");
    Lire(text);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_TRUE(LogText().startsWith(QStringLiteral("15/11/2004 14:30:05 Error : "))) << LogText().toStdString();
    EXPECT_TRUE(boxes.shown.empty());
    // The form stays open with its text as it was.
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->Text1Text(), text);
}

TEST_F(FormMetafTest, AnObservationTypedLineByLineIsStored) {
    text1->clear();
    QTest::keyClicks(text1, Paris);
    QTest::keyClick(text1, Qt::Key_Return);
    QTest::keyClicks(text1, QStringLiteral("LFBO 0211"));  // still being typed: no line end yet
    EXPECT_EQ(form->Text1Text(), Paris + QStringLiteral("\r\nLFBO 0211"));
    QTest::mouseClick(command2, Qt::LeftButton);
    EXPECT_EQ(Places(), QStringList{QStringLiteral("Paris - Charles de Gaulle")});
    EXPECT_EQ(db.Value(QStringLiteral("SELECT METAF FROM Zefir")).toString(), Paris);
}

TEST_F(FormMetafTest, TheTextOfTheBoxHasCrLfLineEnds) {
    form->SetText1Text(QStringLiteral("a\r\nb\nc\rd"));
    EXPECT_EQ(text1->blockCount(), 4);
    EXPECT_EQ(form->Text1Text(), QStringLiteral("a\r\nb\r\nc\r\nd"));
}

TEST_F(FormMetafTest, VerifierMetafPaintsTheTextGreenWhenTheWholeTextIsStored) {
    form->SetText1Text(Paris);
    form->VerifierMetaf();
    EXPECT_EQ(form->Text1ForeColor(), 32768);
    EXPECT_EQ(text1->toolTip(), QString());
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
}

TEST_F(FormMetafTest, VerifierMetafPaintsTheTextRedWithTheWordsAsToolTip) {
    form->VerifierMetaf();  // the prompt: its first word is no station
    EXPECT_EQ(form->Text1ForeColor(), 255);
    EXPECT_EQ(text1->toolTip(), QStringLiteral("Erreur : Pas d'aéroport correspondant"));
}

TEST_F(FormMetafTest, TypingInTheBoxResetsTheTextColourToBlack) {
    form->VerifierMetaf();
    ASSERT_EQ(form->Text1ForeColor(), 255);
    QTest::keyClicks(text1, QStringLiteral("x"));
    EXPECT_EQ(form->Text1ForeColor(), 0);
}

TEST(GarderAuDessus, AShownWindowStaysInItsPlaceAndSize) {
    EnsureGuiApplication();
    QWidget window;
    window.setGeometry(200, 150, 320, 240);
    window.show();
    const QRect before = window.geometry();
    GarderAuDessus(window);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(window.geometry(), before);
}

TEST(GarderAuDessus, AHiddenWindowIsShown) {
    EnsureGuiApplication();
    QWidget window;
    window.resize(300, 200);
    GarderAuDessus(window);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(300, 200));
}
