// What the main window's tests share: a loaded Form1 with its poll cycle, over a real database
// in a temporary folder, run from another temporary folder that holds log/ and Images/, as the
// program finds them.
#pragma once

#include "Form1.h"
#include "Forms.h"
#include "GuiApplication.h"
#include "Named.h"
#include "NotificationArea.h"
#include "PollCycle.h"
#include "RecordingSurface.h"
#include "RunTime.h"
#include "Seams.h"
#include "TestDatabase.h"
#include "acquisition/PollParts.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTcpServer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

// Texts print as text when an expectation fails.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }

namespace skelda::test {

// The day that the tests' observations fall on: 2 November 2004, a day whose number is also a
// month, so that a day-first date would find another day.
inline const QDate Jour(2004, 11, 2);

// An observation of airport Numero at Heure:Minute of the test day, with plain values that each
// test changes as it needs.
inline TestObservation Releve(int numero, int heure, int minute, int noeuds = 10) {
    TestObservation row;
    row.numAeroport = numero;
    row.day = Jour;
    row.time = QTime(heure, minute);
    row.forcenoeuds = noeuds;
    row.orientation = QStringLiteral("240");
    row.visibilite = QStringLiteral("Visibility greater then 10 Km");
    row.temperature = 12;
    row.pression = 1015;
    row.metaf = QStringLiteral("LFPB 02%1%2Z 240%3KT CAVOK 12/08 Q1015")
                    .arg(heure, 2, 10, QLatin1Char('0'))
                    .arg(minute, 2, 10, QLatin1Char('0'))
                    .arg(noeuds, 2, 10, QLatin1Char('0'));
    return row;
}

// The three airports of the tests, listed by city: London - Heathrow (idx 2) first, then
// Paris - Le Bourget (idx 1, the preferred one), then Roissy - Charles de Gaulle (idx 3).
inline QList<SeedAirport> Aeroports() {
    return {Airport(QStringLiteral("LFPB"), QStringLiteral("Paris"), QStringLiteral("Le Bourget"), true, true),
            Airport(QStringLiteral("EGLL"), QStringLiteral("London"), QStringLiteral("Heathrow")),
            Airport(QStringLiteral("LFPG"), QStringLiteral("Roissy"), QStringLiteral("Charles de Gaulle"))};
}
inline constexpr int LeBourget = 1;
inline constexpr int Heathrow = 2;
inline constexpr int LigneLeBourget = 1;  // its line in List1
inline constexpr int LigneHeathrow = 0;

inline void SaveBitmap(const QString& path, QColor colour, QSize size = QSize(150, 100)) {
    QImage image(size, QImage::Format_RGB888);
    image.fill(colour);
    ASSERT_TRUE(image.save(path, "BMP")) << path.toStdString();
}

class MainWindow : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(db.IsValid());
        ASSERT_TRUE(work.isValid());
        previous = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(work.path()));
        QDir().mkdir(QStringLiteral("log"));
        QDir().mkdir(QStringLiteral("Images"));
        SaveBitmap(QStringLiteral("Images/METEO2.BMP"), Qt::blue);
        // Form1 as the program loads it, with its poll cycle wired. Nobody serves here: a poll's
        // connection and the first poll's news fetch are refused at once, silently.
        services.observationServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
        services.newsServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
        ProvideMainWindow(forms);
    }
    void TearDown() override {
        forms.Unload<Form1>();
        QDir::setCurrent(previous);
    }

    // The shared Form1, loaded now if it isn't: its Form_Load runs on the database as it stands.
    Form1& Form() { return forms.Get<Form1>(); }

    // The form after loading, drawing from now on on the recording.
    Form1& FormOnRecording() {
        Form1& form = Form();
        form.DrawOn(recording);
        return form;
    }

    // Redraws the chart on a fresh recording.
    void Redraw(Form1& form) {
        recording.Clear();
        form.TracerCourbe();
    }

    QString LogText() const {
        QFile f(QStringLiteral("log/log.txt"));
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll());
    }
    int LogCount(const QString& line) const { return int(LogText().count(line)); }

    // A port on which nobody listens: a connection to it is refused.
    static quint16 ClosedPort() {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost, 0);
        const quint16 port = probe.serverPort();
        probe.close();
        return port;
    }

    TestDatabase db{Aeroports()};
    QTemporaryDir work;
    QString previous;
    FixedClock clock{QDateTime(QDate(2004, 11, 20), QTime(15, 7, 9))};
    ScriptedRandom random;
    RecordingBoxes boxes;
    // A failure that no handler catches ends here, in the box, instead of ending the test program.
    std::vector<int> runTimeEnds;
    RunTimeGuard guard{boxes, [this](int number) { runTimeEnds.push_back(number); }};
    TestPrinter printer;
    CountingProcessEnd processEnd;
    DesktopNotificationArea notificationArea;
    Services services{clock, random, boxes, guard, {}, {}, {}, db.Folder(), printer, processEnd, notificationArea};
    Forms forms{services};
    RecordingSurface recording;
};

}  // namespace skelda::test
