// The readout under the pointer: the form's handler and the slot label's own, with the small
// differences that they keep on purpose.
#include "MainWindowFixture.h"

#include <QCoreApplication>
#include <QMouseEvent>

using namespace skelda;
using namespace skelda::test;

namespace {

const QString Gusty = QStringLiteral("LFPB 021000Z 24012G25KT 9999 FEW020 12/08 Q1015");
const QString Variable = QStringLiteral("LFPB 021030Z VRB03KT 9999 12/08 Q1015");
const QString BadDirection = QStringLiteral("LFPB 021130Z BCFG 9999 12/08 Q1015");

// X of a pointer at Q columns right of the axis.
double AtColumns(double q) { return 2341 + 180 * q; }

class Readout : public MainWindow {
protected:
    void SetUp() override {
        MainWindow::SetUp();
        Add(0, 0, QStringLiteral("LFPB 020000Z 24005KT 9999 12/08 Q1015"));
        Add(1, 0, QStringLiteral("LFPB 020100Z 24005KT 9999 12/08 Q1015"));    // slot 2
        Add(2, 0, QStringLiteral("LFPB 020200Z 24005KT 9999 12/08 Q1015"));    // slot 4
        Add(10, 0, Gusty);                                                     // slot 20
        Add(10, 30, Variable);                                                 // slot 21
        Add(11, 30, BadDirection);                                             // slot 23
        Add(23, 30, QStringLiteral("LFPB 022330Z 24005KT 9999 12/08 Q1015"));  // slot 47
    }
    void Add(int h, int m, const QString& metaf) {
        TestObservation row = Releve(LeBourget, h, m, 5);
        row.metaf = metaf;
        db.AddObservation(row);
    }
    void Move(Form1& form, double x) { form.Form_MouseMove(0, 0, x, 2000); }
    QString Titre(Form1& form) const { return Named<Label>(form, QStringLiteral("TXTtitre"))->Caption(); }
    bool Shown(Form1& form) const { return !Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->isHidden(); }
};

}  // namespace

TEST_F(Readout, AFirstMoveExactlyOnTheAxisDoesNothing) {
    Form1& form = Form();
    Move(form, form.MaxFKNT.X1);
    EXPECT_EQ(form.DerniereColonne, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("Last Observation"));  // slot 0 isn't read
    EXPECT_TRUE(Shown(form));
}

TEST_F(Readout, TheTestTakesTheFloorAndTheStoreTheNearestHalvesToEven) {
    Form1& form = Form();
    Move(form, AtColumns(2.5));
    EXPECT_EQ(form.DerniereColonne, 2);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:01:00"));
    Move(form, AtColumns(3.5));
    EXPECT_EQ(form.DerniereColonne, 4);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:02:00"));
}

TEST_F(Readout, OverTheLeftHalfOfAColumnTheSlotIsReadOnce) {
    Form1& form = Form();
    Move(form, AtColumns(20.2));
    ASSERT_EQ(Titre(form), QStringLiteral("Weather at:10:00"));
    Named<Label>(form, QStringLiteral("TXTtitre"))->SetCaption(QStringLiteral("untouched"));
    Move(form, AtColumns(20.4));
    EXPECT_EQ(Titre(form), QStringLiteral("untouched"));
}

TEST_F(Readout, OverTheRightHalfTheNextSlotIsComposedAgainOnEveryMove) {
    Form1& form = Form();
    Move(form, AtColumns(20.6));
    EXPECT_EQ(form.DerniereColonne, 21);
    ASSERT_EQ(Titre(form), QStringLiteral("Weather at:10:30"));
    Named<Label>(form, QStringLiteral("TXTtitre"))->SetCaption(QStringLiteral("touched?"));
    Move(form, AtColumns(20.7));
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:10:30"));
}

TEST_F(Readout, MoreThanHalfAColumnLeftOfTheAxisHidesThePanel) {
    Form1& form = Form();
    Move(form, AtColumns(-0.51));
    EXPECT_EQ(form.DerniereColonne, -1);
    EXPECT_FALSE(Shown(form));
}

TEST_F(Readout, LessThanHalfAColumnLeftOfTheAxisReadsSlotZero) {
    Form1& form = Form();
    Move(form, AtColumns(-0.49));
    EXPECT_EQ(form.DerniereColonne, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:00:00"));
}

TEST_F(Readout, MoreThanHalfAColumnRightOfSlot47HidesThePanel) {
    Form1& form = Form();
    Move(form, AtColumns(47.6));
    EXPECT_EQ(form.DerniereColonne, 48);
    EXPECT_FALSE(Shown(form));
}

TEST_F(Readout, ComingFromSlot47TheFloorTestKeepsItsReadoutPastTheEnd) {
    Form1& form = Form();
    Move(form, AtColumns(47.4));
    ASSERT_EQ(Titre(form), QStringLiteral("Weather at:23:30"));
    Move(form, AtColumns(47.6));  // the floor is still 47: nothing changes
    EXPECT_EQ(form.DerniereColonne, 47);
    EXPECT_TRUE(Shown(form));
}

TEST_F(Readout, LeavingTheChartKeepsTheLastHeading) {
    Form1& form = Form();
    Move(form, AtColumns(20));
    Move(form, AtColumns(-3));
    EXPECT_FALSE(Shown(form));
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:10:00"));
    EXPECT_TRUE(Named<Label>(form, QStringLiteral("TXTbulletin"))
                    ->Caption()
                    .startsWith(QStringLiteral("Wind from WSW 12 Knots")));
}

TEST_F(Readout, AnEmptySlotHidesThePanelAndTheNextFullOneShowsItAgain) {
    Form1& form = Form();
    Move(form, AtColumns(10));
    EXPECT_EQ(form.DerniereColonne, 10);  // remembered before the look at the slot
    EXPECT_FALSE(Shown(form));
    Move(form, AtColumns(20));
    EXPECT_TRUE(Shown(form));
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:10:00"));
}

TEST_F(Readout, AGustOf25IsReadInKnotsThenKnts) {
    Form1& form = Form();
    Move(form, AtColumns(20));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(),
              QStringLiteral("Wind from WSW 12 Knots gusting to  25 Knts\r\n"
                             "visibility Visibility Less then 9999 Meter\r\n"
                             "A few clouds at  2000 feets.\r\n"
                             "Pressure 1015 hpa\r\n"
                             "Temperature 12°C\r\n"));
}

TEST_F(Readout, AVariableWindIsReadFromNorthWithItsNegativeSpeedAndBothSectors) {
    Form1& form = Form();
    Move(form, AtColumns(21));
    // Sky and weather are both empty: their three line ends in a row become two, not one.
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(),
              QStringLiteral("Wind from N -3 Knots\r\n"
                             "Shifting from N\r\n"
                             " to N\r\n"
                             "visibility Visibility Less then 9999 Meter\r\n\r\n"
                             "Pressure 1015 hpa\r\n"
                             "Temperature 12°C\r\n"));
}

TEST_F(Readout, TheFormRemembersTheSlotBeforeComposing) {
    Form1& form = Form();
    try {
        Move(form, AtColumns(23));
        FAIL() << "a direction that is no number was named";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), TypeMismatch);
    }
    EXPECT_EQ(form.DerniereColonne, 23);
}

TEST_F(Readout, TheLabelRemembersItsIndexAfterComposing) {
    Form1& form = Form();
    EXPECT_THROW(form.FKNT_MouseMove(23, 0, 0, 0, 0), RuntimeError);
    EXPECT_EQ(form.DernierIndex, 0);
    form.FKNT_MouseMove(20, 0, 0, 0, 0);
    EXPECT_EQ(form.DernierIndex, 20);
}

TEST_F(Readout, TheLabelsOwnEventHasItsOwnWording) {
    Form1& form = Form();
    form.FKNT_MouseMove(20, 0, 0, 0, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather At:10:00"));
    EXPECT_TRUE(Named<Label>(form, QStringLiteral("TXTbulletin"))
                    ->Caption()
                    .startsWith(QStringLiteral("Wind from WSW 12 Knts gusting to 25 Knts\r\n")));
    EXPECT_TRUE(Shown(form));
}

TEST_F(Readout, TheLabelsEventReadsAgainOnlyWhenTheIndexChangesOrThePanelIsHidden) {
    Form1& form = Form();
    form.FKNT_MouseMove(20, 0, 0, 0, 0);
    Named<Label>(form, QStringLiteral("TXTtitre"))->SetCaption(QStringLiteral("untouched"));
    form.FKNT_MouseMove(20, 0, 0, 0, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("untouched"));
    Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->setVisible(false);
    form.FKNT_MouseMove(20, 0, 0, 0, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather At:10:00"));
}

TEST_F(Readout, TheLabelsEventOnAnEmptyTagReadsTheDecodersSample) {
    Form1& form = Form();
    ASSERT_EQ(Named<Label>(form, Indexed("FKNT", 30))->Tag, QString());
    // The sample, LFTH 021000Z 22013KT 9999 FEW016 SCT230 22/06 Q1016: no weather, so its empty
    // line goes with the last step.
    form.FKNT_MouseMove(30, 0, 0, 0, 0);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather At:10:00"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(),
              QStringLiteral("Wind from SW 13 Knts\r\n"
                             "visibility Visibility Less then 9999 Meter\r\n"
                             "A few clouds at  1600 feets. Scattered clouds at 23000 feets.\r\n"
                             "Pressure 1016 hpa\r\n"
                             "Temperature 22°C\r\n"));
    EXPECT_TRUE(Shown(form));
    EXPECT_EQ(form.DernierIndex, 30);
}

TEST_F(Readout, RedrawingTheChartDoesntForgetTheLastSlot) {
    Form1& form = Form();
    Move(form, AtColumns(20));
    form.TracerCourbe();
    Named<Label>(form, QStringLiteral("TXTtitre"))->SetCaption(QStringLiteral("untouched"));
    Move(form, AtColumns(20.3));
    EXPECT_EQ(Titre(form), QStringLiteral("untouched"));
    EXPECT_EQ(form.DerniereColonne, 20);
}

TEST_F(Readout, ThePointerOverTheFormIsReadInTwips) {
    Form1& form = Form();
    const QPoint at(398, 150);  // 5970 twips: 20.16 columns
    QMouseEvent move(QEvent::MouseMove, QPointF(at), form.mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&form, &move);
    EXPECT_EQ(form.DerniereColonne, 20);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather at:10:00"));
    EXPECT_TRUE(form.hasMouseTracking());
}

TEST_F(Readout, ASlotLabelsOwnMouseMoveReachesItsHandler) {
    Form1& form = Form();
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Named<Label>(form, Indexed("FKNT", 20)), &move);
    EXPECT_EQ(form.DernierIndex, 20);
    EXPECT_EQ(Titre(form), QStringLiteral("Weather At:10:00"));
}
