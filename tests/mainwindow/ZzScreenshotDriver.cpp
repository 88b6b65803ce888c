// THROWAWAY: screenshot driver, deleted after use.
#include "MainWindowFixture.h"

#include "Arrow.h"
#include "Bulletin.h"

#include <QTest>
#include <cmath>

using namespace skelda;
using namespace skelda::test;

TEST(Screenshot, Shoot) {
    const QString out = qEnvironmentVariable("SKELDA_SHOT");
    if (out.isEmpty()) GTEST_SKIP();
    EnsureGuiApplication();
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle", true, true, QStringLiteral("paris")),
                     Airport("LFPO", "Paris", "Orly", true, false, QStringLiteral("paris")),
                     Airport("LFPB", "Le Bourget", "Paris - Le Bourget"),
                     Airport("EGLL", "London", "Heathrow", true, false, QStringLiteral("london")),
                     Airport("LFML", "Marseille", "Provence"), Airport("LFLL", "Lyon", "Saint-Exupéry"),
                     Airport("LFBO", "Toulouse", "Blagnac")});
    QTemporaryDir work;
    QDir::setCurrent(work.path());
    QDir().mkdir("log");
    QDir().mkdir("Images");
    const QString images = qEnvironmentVariable("SKELDA_IMAGES");
    for (const QString& f : QDir(images).entryList(QDir::Files)) QFile::copy(images + "/" + f, "Images/" + f);

    FixedClock clock(QDateTime(QDate(2004, 11, 2), QTime(23, 41, 7)));
    NoRandom random;
    NoBoxes boxes;
    Services services{clock, random, boxes, {}, {}, {}, db.Folder()};
    Bulletin last;
    for (int slot = 0; slot < 48; ++slot) {
        const int h = slot / 2, m = slot % 2 * 30;
        const double t = h + m / 60.0;
        const int dir = int(std::lround((200 + 4 * t) / 10)) * 10;
        const int speed = 6 + int(std::lround(16 * std::exp(-(t - 15) * (t - 15) / 14)));
        const int gust = speed >= 16 ? speed + 10 : 0;
        const int pressure = int(std::lround(1018 - 12 * std::exp(-(t - 15) * (t - 15) / 30) - (t > 15 ? (t - 15) * 0.3 : 0)));
        const int temp = int(std::lround(9 + 5 * std::sin((t - 8) / 24 * 2 * M_PI)));
        QString sky, wx;
        if (h < 9) { wx = "BR "; sky = "FEW008 SCT040"; }
        else if (h < 13) sky = "BKN030";
        else if (h < 18) { wx = h == 15 ? "+RA " : "-RA "; sky = "BKN012 OVC030"; }
        else sky = "SCT025";
        const QString wind = QStringLiteral("%1%2%3KT").arg(dir, 3, 10, QChar('0')).arg(speed, 2, 10, QChar('0'))
                                 .arg(gust ? QStringLiteral("G%1").arg(gust) : QString());
        const QString metaf = QStringLiteral("LFPG 02%1%2Z %3 %4 %5%6 %7/%8 Q%9")
                                  .arg(h, 2, 10, QChar('0')).arg(m, 2, 10, QChar('0')).arg(wind)
                                  .arg(h < 9 ? "4000" : "9999").arg(wx).arg(sky).arg(temp, 2, 10, QChar('0'))
                                  .arg(temp - 3, 2, 10, QChar('0')).arg(pressure);
        const Bulletin b = DecoderMetaf(metaf, clock);
        TestObservation row;
        row.numAeroport = 1;
        row.day = QDate(2004, 11, 2);
        row.time = QTime(h, m);
        row.forcenoeuds = b.ForceNoeuds;
        row.orientation = b.OrientationDegre;
        row.forcerafale = b.ForceRafale;
        row.visibilite = b.Visibilite;
        row.temps = b.Temps;
        row.nuage = b.Nuage;
        row.temperature = b.Temperature;
        row.pression = b.Pression;
        row.metaf = metaf;
        db.AddObservation(row);
        TestObservation other = row;
        other.numAeroport = 2;
        other.day = QDate(2004, 11, 1);
        db.AddObservation(other);
        last = b;
    }
    Forms forms(services);
    forms.Provide<Form1>(&Form1::Load);
    Form1& form = forms.Get<Form1>();
    form.TracerCourbe();  // a second drawing: the bars are filled from the first arrow on
    // What a reception shows.
    form.Label1->SetCaption(last.DateReleve + " - " + last.HeureReleve);
    form.Label2->SetCaption(QStringLiteral("Speed : %1 Kt (%2 km/h).").arg(last.ForceNoeuds).arg(last.ForceNoeuds * 1.6));
    form.Label3->SetCaption("Direction : " + last.OrientationDegre + "°");
    QString d = last.OrientationDegre;
    form.Label6->SetCaption(NomDirection(d, false).Concat());
    form.TXTforce->SetCaption(ForceBeaufort(last.ForceNoeuds));
    form.Frame1->setTitle(form.List1->Text());
    SurfaceWidget& pv = *form.PV;
    pv.Cls();
    const double cx = pv.ScaleWidth() / 2, cy = pv.ScaleHeight() / 2;
    const double r = int(pv.ScaleWidth() / 2 - 15);
    pv.SetFillStyle(0);
    pv.SetFillColor(RGB(250, 218, 106));
    pv.Circle(cx, cy, r, 0);
    pv.SetFillColor(RGB(192, 255, 255));
    pv.Circle(cx, cy, r * 0.87, 0);
    pv.SetFillColor(RGB(255, 255, 255));
    pv.Circle(cx - r / 3, cy, r * 0.6, RGB(255, 255, 255), 1.5);
    int16_t len = int16_t(r * 0.95);
    TracerFleche(cx, cy, last.OrientationDegre.toShort(), pv, len);
    form.Label5->SetCaption("23:41:07");
    form.Label11->SetCaption("4:41:07");
    form.SetCaption(form.List1->Text() + " - 4 secondes...");
    if (qEnvironmentVariableIsSet("SKELDA_HOVER")) form.Form_MouseMove(0, 0, 2341 + 180 * qEnvironmentVariableIntValue("SKELDA_HOVER"), 2000);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QTest::qWait(200);
    ASSERT_TRUE(form.grab().save(out));
    form.hide();
    forms.Unload<Form1>();
}
