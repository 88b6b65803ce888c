// Form1 as built: every control under its design name, with its design text and, for the chart,
// its design place. Nothing is loaded here.
#include "MainWindowFixture.h"

#include "SurfacePainting.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class Form1Controls : public MainWindow {
protected:
    void SetUp() override {
        MainWindow::SetUp();
        form = std::make_unique<Form1>(forms);
    }
    void TearDown() override {
        form.reset();
        MainWindow::TearDown();
    }
    template <class W = QWidget>
    W* Find(const QString& name) const {
        return form->findChild<W*>(name);
    }
    QString CaptionOf(const QString& name) const {
        auto* label = Find<QLabel>(name);
        return label ? label->text() : QStringLiteral("<missing>");
    }
    QString Indexed(const char* name, int i) const { return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i); }

    std::unique_ptr<Form1> form;
};

}  // namespace

TEST_F(Form1Controls, EveryControlIsFoundByItsDesignName) {
    for (const char* name :
         {"Frame4",  "List1",   "ChoixDate", "Frame1",   "TXTtitre", "LeBulletin", "TXTbulletin", "Label1",
          "Label2",  "Label3",  "Label6",    "TXTforce", "PV",       "Label4",     "Label5",      "Label7",
          "Label11", "Label12", "Picture1",  "Shape1",   "Shape2",   "wwwsource"})
        EXPECT_NE(Find(QLatin1String(name)), nullptr) << name;
    for (int i = 0; i < 48; ++i) EXPECT_EQ(Find(Indexed("FKNT", i)), Named<Label>(*form, Indexed("FKNT", i))) << i;
    for (int i = 0; i < 24; ++i) {
        EXPECT_EQ(Find(Indexed("Label8", i)), Named<Label>(*form, Indexed("Label8", i))) << i;
        EXPECT_EQ(Find(Indexed("ICO", i)), Named<Image>(*form, Indexed("ICO", i))) << i;
    }
    for (int i = 0; i < 11; ++i) EXPECT_EQ(Find(Indexed("Label9", i)), Named<Label>(*form, Indexed("Label9", i))) << i;
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Find(Indexed("Label10", i)), Named<Label>(*form, Indexed("Label10", i))) << i;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Find(Indexed("TxtDir", i)), Named<Label>(*form, Indexed("TxtDir", i))) << i;
    EXPECT_EQ(Find(QStringLiteral("List1")), Named<ListBox>(*form, QStringLiteral("List1")));
    EXPECT_EQ(Find(QStringLiteral("PV")), Named<SurfaceWidget>(*form, QStringLiteral("PV")));
    EXPECT_EQ(Find(QStringLiteral("Picture1")), Named<PictureBox>(*form, QStringLiteral("Picture1")));
}

TEST_F(Form1Controls, TheWindowIsSkeldaWithAFixedClientAreaOf11715By4515Twips) {
    EXPECT_EQ(form->Caption(), QStringLiteral("Skelda"));
    EXPECT_EQ(WidthOf(form.get()), 11715);
    EXPECT_EQ(HeightOf(form.get()), 4515);
    EXPECT_EQ(form->minimumSize(), form->maximumSize());
    EXPECT_FALSE(form->windowIcon().isNull());
}

TEST_F(Form1Controls, DesignTextsStandLetterForLetter) {
    EXPECT_EQ(Named<QGroupBox>(*form, QStringLiteral("Frame4"))->title(), QStringLiteral("Aiarport"));
    EXPECT_EQ(Named<QGroupBox>(*form, QStringLiteral("LeBulletin"))->title(), QStringLiteral("Prévisions :"));
    EXPECT_EQ(Named<Label>(*form, QStringLiteral("TXTtitre"))->Caption(), QStringLiteral("Last Observation"));
    EXPECT_EQ(Named<Label>(*form, QStringLiteral("Label4"))->Caption(), QStringLiteral("Local Time:"));
    EXPECT_EQ(Named<Label>(*form, QStringLiteral("Label7"))->Caption(), QStringLiteral("Zulu:"));
    EXPECT_EQ(Named<Label>(*form, QStringLiteral("Label12"))->Caption(), QStringLiteral("Skelda B.0.032"));
    EXPECT_EQ(Named<ListBox>(*form, QStringLiteral("List1"))->toolTip(),
              QStringLiteral("Click pour voir le graphique - Double Click pour faire un relevé."));
    EXPECT_EQ(Named<Label>(*form, QStringLiteral("TXTbulletin"))->Caption(), QString());
    const QStringList letters{QStringLiteral("O"), QStringLiteral("N"), QStringLiteral("E"), QStringLiteral("S")};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Named<Label>(*form, Indexed("TxtDir", i))->Caption(), letters[i]);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Named<Label>(*form, Indexed("TxtDir", i))->parentWidget(),
                  Named<SurfaceWidget>(*form, QStringLiteral("PV")));  // over the dial
}

TEST_F(Form1Controls, TheObservationFrameShowsWindAmpersandTemp) {
    // An ampersand shows only when doubled; the single one marks the access key.
    QString shown = Named<QGroupBox>(*form, QStringLiteral("Frame1"))->title();
    shown.replace(QStringLiteral("&&"), QStringLiteral("\x01"))
        .remove(QLatin1Char('&'))
        .replace(QChar(1), QLatin1Char('&'));
    EXPECT_EQ(shown, QStringLiteral("Wind & Temp."));
}

TEST_F(Form1Controls, HourLabelsRead00To23AtTheirHours) {
    for (int h = 0; h < 24; ++h) {
        EXPECT_EQ(Named<Label>(*form, Indexed("Label8", h))->Caption(),
                  QStringLiteral("%1").arg(h, 2, 10, QLatin1Char('0')));
        EXPECT_EQ(LeftOf(Named<Label>(*form, Indexed("Label8", h))), 2340 + 360 * h);
        EXPECT_EQ(TopOf(Named<Label>(*form, Indexed("Label8", h))), 3840);
    }
}

TEST_F(Form1Controls, ScaleCaptionsByIndexWithTheirColours) {
    const QStringList label9{"50 nds", "40 °",  "0 °",    "8 °",   "16 °",  "24 °",
                             "32 °",   "- 8 °", "- 16 °", "- 24°", "- 32 °"};
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(Named<Label>(*form, Indexed("Label9", i))->Caption(), label9[i]) << i;
        const QColor expected = i == 0 ? QColor(0, 0, 128) : QColor(192, 0, 192);
        EXPECT_EQ(Named<Label>(*form, Indexed("Label9", i))->palette().color(QPalette::WindowText), expected) << i;
    }
    const QStringList label10{"0 nds", "25 nds", "1015 hpa"};
    const QColor colours10[] = {QColor(0, 0, 128), QColor(0, 0, 128), QColor(128, 128, 0)};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Named<Label>(*form, Indexed("Label10", i))->Caption(), label10[i]) << i;
        EXPECT_EQ(Named<Label>(*form, Indexed("Label10", i))->palette().color(QPalette::WindowText), colours10[i]) << i;
    }
}

TEST_F(Form1Controls, TheTemperatureCaptionsStandOnTheirGridLinesLeftOfTheAxis) {
    // 40 degrees at the top, 0 on the pink line, 8 degrees a line.
    const std::pair<int, int> onLine[] = {{1, 16}, {2, 0}, {3, 4}, {4, 3}, {5, 2},
                                          {6, 1},  {7, 6}, {8, 7}, {9, 8}, {10, 11}};
    for (const auto& [label, line] : onLine) {
        const double middle = TopOf(Named<Label>(*form, Indexed("Label9", label))) +
                              HeightOf(Named<Label>(*form, Indexed("Label9", label))) / 2;
        EXPECT_NEAR(middle, form->Line1.at(line).Y1, 15) << label;
        EXPECT_LE(LeftOf(Named<Label>(*form, Indexed("Label9", label))) +
                      WidthOf(Named<Label>(*form, Indexed("Label9", label))),
                  2340)
            << label;
    }
    // The wind scale at the right end.
    EXPECT_GE(LeftOf(Named<Label>(*form, Indexed("Label9", 0))), 10983);
    for (Label* l : NamedArray<Label>(*form, "Label10", 0, 2)) EXPECT_GE(LeftOf(l), 10983);
}

TEST_F(Form1Controls, TheAxisRunsFromTheChartsFootToItsTopInRed) {
    EXPECT_EQ(form->MaxFKNT.X1, 2341);
    EXPECT_EQ(form->MaxFKNT.Y1, 3662);
    EXPECT_EQ(form->MaxFKNT.X2, 2341);
    EXPECT_EQ(form->MaxFKNT.Y2, 1261);
    EXPECT_EQ(form->MaxFKNT.BorderColor, RGB(255, 0, 0));
}

TEST_F(Form1Controls, SlotLabelsStandEvery180TwipsAndAreNeverVisible) {
    form->show();
    for (int i = 0; i < 48; ++i) {
        EXPECT_EQ(LeftOf(Named<Label>(*form, Indexed("FKNT", i))), 2340 + 180 * i) << i;
        EXPECT_EQ(TopOf(Named<Label>(*form, Indexed("FKNT", i))), 3480) << i;
        EXPECT_EQ(WidthOf(Named<Label>(*form, Indexed("FKNT", i))), 195) << i;
        EXPECT_EQ(HeightOf(Named<Label>(*form, Indexed("FKNT", i))), 195) << i;
        EXPECT_TRUE(Named<Label>(*form, Indexed("FKNT", i))->isHidden()) << i;
        EXPECT_EQ(Named<Label>(*form, Indexed("FKNT", i))->Tag, QString()) << i;
    }
    form->hide();
}

TEST_F(Form1Controls, HourPicturesAre16PixelsUnderTheHourLabels) {
    for (int h = 0; h < 24; ++h) {
        EXPECT_EQ(LeftOf(Named<Image>(*form, Indexed("ICO", h))), 2340 + 360 * h);
        EXPECT_EQ(TopOf(Named<Image>(*form, Indexed("ICO", h))), 4080);
        EXPECT_EQ(Named<Image>(*form, Indexed("ICO", h))->size(), QSize(16, 16));
        EXPECT_TRUE(Named<Image>(*form, Indexed("ICO", h))->Picture().isNull());
    }
}

TEST_F(Form1Controls, TheVerticalGridHasOneLightGreyLineASlot) {
    for (int i = 0; i < 48; ++i) {
        const LineControl& l = form->Vline[i];
        EXPECT_NEAR(l.X1, 2521 + 180 * i, 2) << i;
        EXPECT_EQ(l.X2, l.X1);
        EXPECT_EQ(l.Y1, 3662);
        EXPECT_EQ(l.Y2, 1261);
        EXPECT_EQ(l.BorderColor, RGB(192, 192, 192));
    }
    EXPECT_EQ(form->Vline[0].X1, 2521);
    EXPECT_EQ(form->Vline[47].X1, 10983);
}

TEST_F(Form1Controls, TheHorizontalGridKeepsItsDesignIndices) {
    const std::pair<int, double> levels[] = {{16, 1261}, {1, 1501}, {2, 1741}, {3, 1981},  {4, 2221}, {0, 2462},
                                             {6, 2702},  {7, 2942}, {8, 3182}, {11, 3422}, {5, 3662}};
    EXPECT_EQ(form->Line1.size(), 11u);
    for (const auto& [index, y] : levels) {
        const LineControl& l = form->Line1.at(index);
        EXPECT_EQ(l.X1, 2341) << index;
        EXPECT_EQ(l.X2, 10983) << index;
        EXPECT_EQ(l.Y1, y) << index;
        EXPECT_EQ(l.Y2, y) << index;
        EXPECT_EQ(l.BorderColor, index == 0 ? RGB(255, 128, 255) : RGB(128, 128, 128)) << index;
    }
    EXPECT_EQ(form->Line1015.BorderColor, RGB(192, 192, 0));
}

TEST_F(Form1Controls, TheSymbolsAreKeyedInTheirOrder) {
    const QStringList keys{"SUN", "RAIN", "SUNCLOUD", "CLOUD", "STORM", "RAINSTORM", "FOG", "RAINBIG", "SNOW"};
    EXPECT_EQ(form->ImageList2.Keys(), keys);
    for (const QString& key : keys) {
        EXPECT_FALSE(form->ImageList2.ListImages(key).isNull()) << key.toStdString();
        EXPECT_EQ(form->ImageList2.ListImages(key).size(), QSize(16, 16)) << key.toStdString();
    }
    try {
        form->ImageList2.ListImages(QStringLiteral("HAIL"));
        FAIL() << "an unknown key was found";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 35603);
    }
}

TEST_F(Form1Controls, TimersStandStillUntilTheStartIsOver) {
    EXPECT_EQ(T(*form).Interval(), 1000);
    EXPECT_FALSE(T(*form).Enabled());
    EXPECT_EQ(TimerWinsock(*form).Interval(), 20000);
    EXPECT_FALSE(TimerWinsock(*form).Enabled());
}

TEST_F(Form1Controls, ThePageHolderIsHiddenAndTheRestFitsTheWindow) {
    form->show();
    EXPECT_FALSE(Named<HiddenTextBox>(*form, QStringLiteral("wwwsource"))->isVisible());
    const QRect client = form->rect();
    for (QWidget* w : form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (w->isHidden()) continue;
        EXPECT_TRUE(client.contains(w->geometry())) << w->objectName().toStdString();
    }
    form->hide();
}

TEST_F(Form1Controls, NothingOfTheFreeLayoutCoversTheChart) {
    // The chart from the top grid line to the hour pictures, between the scales: from x 2340 to
    // 10983 twips and from y 1261 to 4320, in whole pixels of 15 twips.
    const QRect chart(156, 84, 576, 204);
    QList<QWidget*> chartControls;
    for (auto* w : NamedArray<Label>(*form, "FKNT", 0, 47)) chartControls.append(w);
    for (auto* w : NamedArray<Label>(*form, "Label8", 0, 23)) chartControls.append(w);
    for (auto* w : NamedArray<Image>(*form, "ICO", 0, 23)) chartControls.append(w);
    for (QWidget* w : form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (w->isHidden() || chartControls.contains(w)) continue;
        EXPECT_FALSE(chart.intersects(w->geometry())) << w->objectName().toStdString();
    }
}

TEST_F(Form1Controls, ConstructionReadsNothing) {
    EXPECT_EQ(Named<ListBox>(*form, QStringLiteral("List1"))->ListCount(), 0);
    EXPECT_EQ(Named<ComboBox>(*form, QStringLiteral("ChoixDate"))->ListCount(), 0);
    EXPECT_EQ(form->ChargementFini, 0);
    EXPECT_EQ(LogText(), QString());
}
