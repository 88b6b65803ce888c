// The reception of a reply: from the bytes on the socket to the stored row, the labels, the
// dial, the log, the chart and the tray's caption.
#include "AcquisitionFixture.h"
#include "Regional.h"

// Colours print by name when an expectation fails.
inline void PrintTo(const QColor& colour, std::ostream* os) { *os << colour.name().toStdString(); }

using namespace skelda;
using namespace skelda::test;

namespace {

class Ingestion : public AcquisitionFixture {
protected:
    // The server answers the request of Le Bourget with Reply, and anything else with a 404.
    void AnswerBourget(const QByteArray& reply) {
        server.answer = [reply](const QByteArray& request) -> QList<QByteArray> {
            if (request == ExpectedRequest("LFPB")) return {reply};
            return {"HTTP/1.0 404 Not Found\r\n\r\n"};
        };
    }
    // One poll of the selected entry, up to the end of its reception.
    bool PollAndWait(Form1& f) {
        const int avant = LogCount(QStringLiteral("Weather Received from "));
        f.Cycle().Connect();
        return QTest::qWaitFor(
            [&] { return LogCount(QStringLiteral("Weather Received from ")) > avant && W(f).State() == sckClosed; },
            5000);
    }
    // The reception of Reply as if it had arrived on W.
    void Receive(Form1& f, const QByteArray& reply) { f.Cycle().IngererReponse(QString::fromLatin1(reply)); }

    // The tray caption that the ingestion writes for the selected entry, Le Bourget's: the entry
    // with its three blanks trimmed, a line end and the wind.
    static QString TrayTitle(const QString& vent) { return QStringLiteral("Paris - Le Bourget\r\n") + vent; }

    QVariant Column(const char* name) const {
        return db.Value(QStringLiteral("SELECT \"%1\" FROM \"Zefir\"").arg(QString::fromUtf8(name)));
    }
    bool Redrawn() const {
        for (const DrawCall& call : recording.Calls())
            if (call.op == DrawOp::Cls) return true;
        return false;
    }
};

TEST_F(Ingestion, TheFirstRowOfANewDayDoesntEnterTheListOfDates) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 1), .time = QTime(10, 0)});
    Form1& f = Form();
    ASSERT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListCount(), 1);
    Receive(f, StationReply(Bourget));  // the 2nd of November, a day the list doesn't have
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 2);
    // The day enters at the next hourly refresh, not with its first row.
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListCount(), 1);
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->Text(), QStringLiteral("01/11/2004"));
}

TEST_F(Ingestion, AStationFileBecomesOneRowWithTheLabelsTheLogTheChartAndTheTrayCaption) {
    AnswerBourget(StationReply(Bourget));
    Form1& f = Form();
    f.DrawOn(recording);
    const QString entree = Named<ListBox>(f, QStringLiteral("List1"))->List(LigneBourget);
    ASSERT_TRUE(PollAndWait(f));

    // The row, column by column.
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("NumAéroport").toInt(), 1);
    EXPECT_EQ(Column("daterelevé").toString(), QStringLiteral("2004-11-02"));
    EXPECT_EQ(Column("heurerelevé").toString(), QStringLiteral("10:00:00"));
    EXPECT_EQ(Column("forcenoeuds").toInt(), 13);
    EXPECT_EQ(Column("orientationdegré").toString(), QStringLiteral("240"));
    EXPECT_EQ(Column("forcerafale").toInt(), 0);
    EXPECT_EQ(Column("zefirvariable").toInt(), 0);
    EXPECT_EQ(Column("secteur1").toInt(), 0);
    EXPECT_EQ(Column("secteur2").toInt(), 0);
    EXPECT_EQ(Column("visibilité").toString(), QStringLiteral("Visibility Less then 9999 Meter"));
    EXPECT_EQ(Column("temps").toString(), QString());  // no weather group
    EXPECT_EQ(Column("nuage").toString(), QStringLiteral(" A few clouds at  1600 feets."));
    EXPECT_EQ(Column("température").toInt(), 12);
    EXPECT_EQ(Column("pression").toInt(), 1015);
    EXPECT_EQ(Column("METAF").toString(), QString::fromLatin1(Bourget));
    EXPECT_FALSE(Column("lieu").isValid());

    // The labels and the window.
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label1"))->Caption(), QStringLiteral("02/11/2004 - 10:00"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : 13 Kt (20.8 km/h)."));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label3"))->Caption(), QStringLiteral("Direction : 240°"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label6"))->Caption(), QStringLiteral("West South West"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("TXTforce"))->Caption(), QStringLiteral("Force 4"));
    EXPECT_EQ(f.Caption(), QStringLiteral("Wind : ") + entree);
    EXPECT_EQ(Named<QGroupBox>(f, QStringLiteral("Frame1"))->title(), entree);
    EXPECT_TRUE(Named<ListBox>(f, QStringLiteral("List1"))->isEnabled());
    EXPECT_FLOAT_EQ(f.Cycle().AngleZefir, float((240.0 + 90) * 2 * 3.141592 / 360));
    EXPECT_EQ(Named<SurfaceWidget>(f, QStringLiteral("PV"))->Tag, QStringLiteral("240"));
    EXPECT_EQ(f.Cycle().ReponseBrute, QString::fromLatin1(StationReply(Bourget)));

    // The log, the chart and the tray's caption.
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from ") + entree), 1);
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ") + entree), 1);
    EXPECT_TRUE(Redrawn());
    EXPECT_EQ(Named<Label>(f, Indexed("FKNT", 20))->Tag, QString::fromLatin1(Bourget));
    EXPECT_EQ(TrayCaption(), TrayTitle(QStringLiteral("West South West Force 4")));

    // The exchange is over, from this side.
    EXPECT_EQ(W(f).State(), sckClosed);
    EXPECT_FALSE(TimerWinsock(f).Enabled());
    EXPECT_TRUE(server.WaitForDisconnections(1));
    EXPECT_TRUE(f.Base().IsNothing());
    EXPECT_TRUE(f.Jeu().IsNothing());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Ingestion, TheSameStationFileAgainIsADuplicateThatStillRefreshesTheLabelsAndTheTray) {
    AnswerBourget(StationReply(Bourget));
    Form1& f = Form();
    f.DrawOn(recording);
    ASSERT_TRUE(PollAndWait(f));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);

    recording.Clear();
    forms.Get<TrayForm>().SetCaption(QStringLiteral("before"));
    ASSERT_TRUE(PollAndWait(f));
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate LFPB")), 1);
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ")), 1);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : 13 Kt (20.8 km/h)."));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("TXTforce"))->Caption(), QStringLiteral("Force 4"));
    // The chart as it was: not redrawn.
    EXPECT_FALSE(Redrawn());
    EXPECT_EQ(Named<Label>(f, Indexed("FKNT", 20))->Tag, QString::fromLatin1(Bourget));
    EXPECT_EQ(TrayCaption(), TrayTitle(QStringLiteral("West South West Force 4")));
    EXPECT_EQ(W(f).State(), sckClosed);
    EXPECT_FALSE(TimerWinsock(f).Enabled());
    EXPECT_TRUE(server.WaitForDisconnections(2));
}

TEST_F(Ingestion, AStationFileWhoseCodeCantBeLookedUpFetchedTwiceIsOneRowAndOneDuplicateLine) {
    // The apostrophe breaks the lookup's criterion, so the airport column stays Null.
    const QByteArray report = "LF'B 021000Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG\n";
    Form1& f = Form();
    Receive(f, StationReply(report));
    Receive(f, StationReply(report));
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_FALSE(Column("NumAéroport").isValid());
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate ")), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate LF'B")), 1);
}

TEST_F(Ingestion, AReplyWithoutAReadableDayOrTimeFetchedTwiceIsOneRowAndOneDuplicateLine) {
    // An error page of the server: its body goes to the decoder as if it were a report.
    const QByteArray page = "HTTP/1.0 200 OK\r\n\r\n<html><body>Service unavailable, try later</body></html>\n";
    Form1& f = Form();
    Receive(f, page);
    Receive(f, page);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate ")), 1);
}

TEST_F(Ingestion, AHeadSplitOverTwoPacketsIsReadFromTheSecond) {
    Form1& f = Form();
    f.Cycle().Connect();
    ASSERT_TRUE(server.WaitForRequests(1));
    const QByteArray reponse = StationReply(Bourget);
    const qsizetype coupe = reponse.indexOf("\r\n\r\n") - 5;

    server.Send(reponse.left(coupe));
    ASSERT_TRUE(QTest::qWaitFor([&] { return LogCount(QStringLiteral("Weather Received from ")) == 1; }, 5000));
    // Only the log line: the exchange waits for more.
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 0);
    EXPECT_TRUE(TimerWinsock(f).Enabled());
    EXPECT_FALSE(Named<ListBox>(f, QStringLiteral("List1"))->isEnabled());
    EXPECT_EQ(W(f).State(), sckConnected);
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Label2"))->Caption().isEmpty());

    server.Send(reponse.mid(coupe));
    ASSERT_TRUE(QTest::qWaitFor([&] { return W(f).State() == sckClosed; }, 5000));
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from ")), 2);
    EXPECT_EQ(f.Cycle().ReponseBrute, QString::fromLatin1(reponse.mid(coupe)));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("METAF").toString(), QString::fromLatin1(Bourget));
    EXPECT_FALSE(TimerWinsock(f).Enabled());
    EXPECT_TRUE(Named<ListBox>(f, QStringLiteral("List1"))->isEnabled());
}

TEST_F(Ingestion, ABodySplitOverTwoPacketsKeepsOnlyTheFirst) {
    Form1& f = Form();
    f.Cycle().Connect();
    ASSERT_TRUE(server.WaitForRequests(1));
    const QByteArray reponse = StationReply(Bourget);
    const qsizetype coupe = reponse.indexOf("24013KT");

    server.Send(reponse.left(coupe));
    ASSERT_TRUE(QTest::qWaitFor([&] { return W(f).State() == sckClosed; }, 5000));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("METAF").toString(), QStringLiteral("LFPB 021000Z "));
    EXPECT_EQ(Column("NumAéroport").toInt(), 1);
    EXPECT_TRUE(server.WaitForDisconnections(1));

    // The rest has no socket left to arrive on: a round trip later, nothing more was received.
    server.Send(reponse.mid(coupe));
    ASSERT_TRUE(RoundTrip());
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from ")), 1);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
}

TEST_F(Ingestion, APacketWithoutAnEndOfHeadIsOnlyLogged) {
    Form1& f = Form();
    f.DrawOn(recording);
    TimerWinsock(f).SetEnabled(true);
    Named<ListBox>(f, QStringLiteral("List1"))->setEnabled(false);
    Receive(f, "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n");
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from ")), 1);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 0);
    EXPECT_TRUE(TimerWinsock(f).Enabled());
    EXPECT_FALSE(Named<ListBox>(f, QStringLiteral("List1"))->isEnabled());
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Label1"))->Caption().isEmpty());
    EXPECT_FALSE(Redrawn());
    EXPECT_EQ(TrayCaption(), QString());
}

TEST_F(Ingestion, ABodyShorterThan17CharactersDecodesTheSampleAndStoresAnEmptyMetaf) {
    Form1& f = Form();
    Receive(f, StationReply("", "2004/11/02\n"));
    EXPECT_EQ(f.Cycle().BulletinCourant.Ida, QStringLiteral("LFTH"));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("METAF").toString(), QString());
    EXPECT_TRUE(Column("METAF").isValid());
    // The sample's station isn't an airport of the table.
    EXPECT_EQ(Column("NumAéroport").toInt(), 0);
}

TEST_F(Ingestion, AVariableWindStoresDirection0WithoutLogLineOrRedraw) {
    Form1& f = Form();
    f.DrawOn(recording);
    f.Cycle().AngleZefir = 1.5f;
    Receive(f, StationReply("LFPB 021000Z VRB03KT 9999 FEW016 12/08 Q1015\n"));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("orientationdegré").toString(), QStringLiteral("0"));
    EXPECT_NE(Column("zefirvariable").toInt(), 0);
    EXPECT_EQ(f.Cycle().AngleZefir, 1.5f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label3"))->Caption(), QStringLiteral("Direction : 0°"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label6"))->Caption(), QStringLiteral("North"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : -3 Kt (-4.8 km/h)."));
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from ")), 1);
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ")), 0);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE")), 0);
    EXPECT_FALSE(Redrawn());
    // Steps 10 and 11 run all the same.
    EXPECT_EQ(TrayCaption(), TrayTitle(QStringLiteral("North Force 0")));
    EXPECT_FALSE(TimerWinsock(f).Enabled());
}

TEST_F(Ingestion, ADirectionThatIsNoNumberLeavesTheCompassNameEmpty) {
    Form1& f = Form();
    // Any group with a G in the wind's place is read as a gust wind: its first three characters
    // become the direction.
    Receive(f, StationReply("LFPB 021000Z BCFG 9999 12/08 Q1015\n"));
    ASSERT_EQ(f.Cycle().BulletinCourant.OrientationDegre, QStringLiteral("BCF"));
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Label6"))->Caption().isEmpty());
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label3"))->Caption(), QStringLiteral("Direction : BCF°"));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("orientationdegré").toString(), QStringLiteral("BCF"));
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ")), 0);
}

TEST_F(Ingestion, TheSpeedInKmhIsTimes16InTheSystemsNumberFormat) {
    Form1& f = Form();
    Receive(f, StationReply(Bourget));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : 13 Kt (20.8 km/h)."));
    Receive(f, StationReply("LFPB 021030Z 00000KT 9999 FEW016 12/08 Q1015\n"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : 0 Kt (0 km/h)."));
}

TEST_F(Ingestion, AGustAddsItsForceBehindTheSpeeds) {
    Form1& f = Form();
    Receive(f, StationReply(Bourget));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("TXTforce"))->Caption(), QStringLiteral("Force 4"));
    Receive(f, StationReply("LFPB 021030Z 24013G25KT 9999 FEW016 12/08 Q1015\n"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("TXTforce"))->Caption(), QStringLiteral("Force 4 / Force 6"));
    EXPECT_EQ(db.Value(QStringLiteral("SELECT forcerafale FROM Zefir WHERE heurerelevé = '10:30:00'")).toInt(), 25);
}

TEST_F(Ingestion, TextBehindTheReportStaysInTheMetafColumn) {
    Form1& f = Form();
    const QByteArray suite = "LFPB 021000Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG=\n\nmore lines of the file\n";
    Receive(f, StationReply(suite));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("METAF").toString(), QString::fromLatin1(suite));
}

TEST_F(Ingestion, AnUnknownStationIsStoredUnderNumber0) {
    Form1& f = Form();
    Receive(f, StationReply("ZZZZ 021000Z 24013KT 9999 FEW016 12/08 Q1015\n"));
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column("NumAéroport").toInt(), 0);
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ")), 1);
}

TEST_F(Ingestion, AMissingDatabaseStoresNothingButStillEndsTheExchange) {
    Form1& f = Form();
    f.DrawOn(recording);
    TimerWinsock(f).SetEnabled(true);
    ASSERT_TRUE(QFile::remove(db.Path()));
    Receive(f, StationReply(Bourget));
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded ")), 0);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE")), 0);
    EXPECT_FALSE(Redrawn());
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Speed : 13 Kt (20.8 km/h)."));
    EXPECT_EQ(TrayCaption(), TrayTitle(QStringLiteral("West South West Force 4")));
    EXPECT_FALSE(TimerWinsock(f).Enabled());
    EXPECT_TRUE(f.Base().IsNothing());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Ingestion, TheWindDialIsDrawnOnPv) {
    Form1& f = Form();
    Receive(f, StationReply(Bourget));
    // PV is 900 twips square, 60 pixels, its centre at (30, 30). Rayon = 900 / 2 - 15 = 435
    // twips, 29 pixels; the pale face covers 0.87 of it, 378 twips, 25 pixels, and the sand
    // rim the rest. The arrow of 240 degrees runs from the centre towards the upper right and
    // the lower left, the white gleam stands left of the centre.
    const QImage dial = Named<SurfaceWidget>(f, QStringLiteral("PV"))->Snapshot();
    ASSERT_EQ(dial.size(), QSize(60, 60));
    const QColor noir(0, 0, 0), face(192, 255, 255), bord(250, 218, 106);
    EXPECT_EQ(dial.pixelColor(45, 32), face);  // 15 pixels right of the centre
    EXPECT_EQ(dial.pixelColor(55, 30), noir);  // the face's outline, 25 pixels right
    EXPECT_EQ(dial.pixelColor(57, 30), bord);
    EXPECT_EQ(dial.pixelColor(59, 30), noir);  // the rim's outline, 29 pixels right
    EXPECT_EQ(dial.pixelColor(30, 57), bord);  // 27 pixels below the centre
    EXPECT_EQ(dial.pixelColor(30, 59), noir);
}

}  // namespace
