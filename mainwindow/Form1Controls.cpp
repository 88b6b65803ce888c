// The controls of Form1 at their design places, in twips (15 to a pixel).
//
// The chart's controls keep the coordinates that its drawing and readout depend on: the axis
// MaxFKNT, the slot labels FKNT, the hour labels and pictures, the grid and the scales. The rest
// fills the free space: the strip above the chart holds the airports, the last observation, the
// clocks and the airport's picture; the column left of the temperature scale holds the bulletin.
#include "Artwork.h"
#include "Form1.h"
#include "FormParts.h"

#include <QFrame>
#include <QIcon>

#include <iterator>
#include <tuple>

namespace skelda {

namespace {

constexpr double FormWidth = 11715;  // client area, twips
constexpr double FormHeight = 4515;

constexpr Color Red = RGB(255, 0, 0);
constexpr Color Navy = RGB(0, 0, 128);
constexpr Color Grey = RGB(128, 128, 128);
constexpr Color LightGrey = RGB(192, 192, 192);
constexpr Color Pink = RGB(255, 128, 255);
constexpr Color Olive = RGB(192, 192, 0);
constexpr Color DarkOlive = RGB(128, 128, 0);
constexpr Color Purple = RGB(192, 0, 192);

// The chart's frame: the axis runs from its foot (Bas) up to its top (Haut).
constexpr double AxisX = 2341;
constexpr double Bas = 3662;
constexpr double Haut = 1261;
constexpr double GridRight = 10983;
constexpr double SlotLeft = 2340;  // left of slot 0, of hour 0
constexpr double SlotStep = 180;   // one half hour

QGroupBox* NewFrame(QWidget* parent, const char* name, const QString& caption, double left, double top, double width,
                    double height) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(QLatin1String(name));
    Place(frame, left, top, width, height);
    return frame;
}

}  // namespace

// The builder of Form1's controls, which it alone may place.
struct Form1Builder {
    // ---- The chart.

    static void BuildGrid(Form1& f) {
        f.MaxFKNT = NewLine(AxisX, Bas, AxisX, Haut, Red);
        // Placed at its level by Form_Load, from MaxFKNT.
        f.Line1015 = NewLine(AxisX, 0, GridRight, 0, Olive);
        for (int i = 0; i < int(f.Vline.size()); ++i) {
            // The last line closes the grid at the right end of the horizontal lines.
            const double x = i == int(f.Vline.size()) - 1 ? GridRight : 2521 + SlotStep * i;
            f.Vline[i] = NewLine(x, Bas, x, Haut, LightGrey);
        }
        // One horizontal line every 8 degrees, top to bottom; the indices are the design's own.
        const std::pair<int, double> levels[] = {{16, 1261}, {1, 1501}, {2, 1741}, {3, 1981},  {4, 2221}, {0, 2462},
                                                 {6, 2702},  {7, 2942}, {8, 3182}, {11, 3422}, {5, 3662}};
        for (const auto& [index, y] : levels)
            f.Line1[index] = NewLine(AxisX, y, GridRight, y, index == 0 ? Pink : Grey);
    }

    static void BuildSlots(Form1& f) {
        for (int i = 0; i < int(f.FKNT.size()); ++i) {
            // Never shown: each holds its slot's bar geometry and METAF text for the readout.
            f.FKNT[i] = NewLabel(&f, Indexed("FKNT", i), QString(), SlotLeft + SlotStep * i, 3480, 195, 195);
            f.FKNT[i]->setVisible(false);
        }
        for (int h = 0; h < int(f.Label8.size()); ++h) {
            f.Label8[h] = NewLabel(&f, Indexed("Label8", h), QStringLiteral("%1").arg(h, 2, 10, QLatin1Char('0')),
                                   SlotLeft + 2 * SlotStep * h, 3840, 240, 210, Qt::AlignLeft | Qt::AlignTop);
        }
        for (int h = 0; h < int(f.ICO.size()); ++h) {
            f.ICO[h] = new Image(&f);
            f.ICO[h]->setObjectName(Indexed("ICO", h));
            Place(f.ICO[h], SlotLeft + 2 * SlotStep * h, 4080, 240, 240);
        }
    }

    static void BuildScales(Form1& f) {
        QFont small = f.font();
        small.setPointSizeF(small.pointSizeF() - 1);
        // The temperature scale on the left axis, one caption centred on each grid line but the
        // lowest, and the wind's top at the right end of the top line.
        const char* captions[] = {"50 nds", "40 °",  "0 °",    "8 °",   "16 °",  "24 °",
                                  "32 °",   "- 8 °", "- 16 °", "- 24°", "- 32 °"};
        const double levels[] = {1261, 1261, 2462, 2221, 1981, 1741, 1501, 2702, 2942, 3182, 3422};
        static_assert(std::size(captions) == std::tuple_size_v<decltype(f.Label9)>);
        for (int i = 0; i < int(std::size(captions)); ++i) {
            const QString caption = QString::fromUtf8(captions[i]);
            if (i == 0)
                f.Label9[i] = NewLabel(&f, Indexed("Label9", i), caption, 11010, levels[i] - 90, 690, 180);
            else
                f.Label9[i] = NewLabel(&f, Indexed("Label9", i), caption, 1770, levels[i] - 90, 540, 180,
                                       Qt::AlignRight | Qt::AlignVCenter);
            f.Label9[i]->setFont(small);
            SetForeColour(f.Label9[i], i == 0 ? Navy : Purple);
        }
        // The wind's foot and middle, and the pressure line's caption, at the right end.
        const char* windCaptions[] = {"0 nds", "25 nds", "1015 hpa"};
        const double windLevels[] = {Bas, (Bas + Haut) / 2, Bas - (Bas - Haut) * 55 / 80};
        const Color windColours[] = {Navy, Navy, DarkOlive};
        static_assert(std::size(windCaptions) == std::tuple_size_v<decltype(f.Label10)>);
        for (int i = 0; i < int(std::size(windCaptions)); ++i) {
            f.Label10[i] = NewLabel(&f, Indexed("Label10", i), QString::fromUtf8(windCaptions[i]), 11010,
                                    windLevels[i] - 90, 690, 180);
            f.Label10[i]->setFont(small);
            SetForeColour(f.Label10[i], windColours[i]);
        }
    }

    static void FillSymbols(Form1& f) {
        for (const char* key : {"SUN", "RAIN", "SUNCLOUD", "CLOUD", "STORM", "RAINSTORM", "FOG", "RAINBIG", "SNOW"})
            f.ImageList2.Add(QLatin1String(key), QPixmap(QStringLiteral(":/symbols/%1.png").arg(QLatin1String(key))));
    }

    // ---- The strip above the chart.

    static void BuildAirportList(Form1& f) {
        f.Frame4 = NewFrame(&f, "Frame4", QStringLiteral("Aiarport"), 30, 0, 4350, 1140);
        f.List1 = new ListBox(f.Frame4);
        f.List1->setObjectName(QStringLiteral("List1"));
        f.List1->setToolTip(QStringLiteral("Click pour voir le graphique - Double Click pour faire un relevé."));
        Place(f.List1, 90, 225, 2760, 855);
        // Every line fits the width; a horizontal bar would only take a line's room.
        f.List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        f.ChoixDate = new ComboBox(f.Frame4);
        f.ChoixDate->setObjectName(QStringLiteral("ChoixDate"));
        Place(f.ChoixDate, 2910, 225, 1380, 330);
    }

    static void BuildLastObservation(Form1& f) {
        // The design text is "Wind & &Temp.": its first ampersand is meant to show, which Qt does
        // only for a doubled one; the second still marks T as the access key.
        f.Frame1 = NewFrame(&f, "Frame1", QStringLiteral("Wind && &Temp."), 4440, 0, 3450, 1140);
        f.PV = new SurfaceWidget(f.Frame1);
        f.PV->setObjectName(QStringLiteral("PV"));
        Place(f.PV, 75, 195, 900, 900);
        // The compass letters stand over the dial's edge, west, north, east, south.
        const char* letters[] = {"O", "N", "E", "S"};
        const double places[][2] = {{0, 375}, {375, 0}, {750, 375}, {375, 750}};
        QFont bold = f.font();
        bold.setBold(true);
        for (int i = 0; i < int(f.TxtDir.size()); ++i) {
            f.TxtDir[i] = NewLabel(f.PV, Indexed("TxtDir", i), QLatin1String(letters[i]), places[i][0], places[i][1],
                                   150, 150, Qt::AlignCenter);
            f.TxtDir[i]->setFont(bold);
        }
        Label** lines[] = {&f.Label1, &f.Label2, &f.Label3, &f.Label6, &f.TXTforce};
        const char* names[] = {"Label1", "Label2", "Label3", "Label6", "TXTforce"};
        for (int i = 0; i < 5; ++i)
            *lines[i] = NewLabel(f.Frame1, QLatin1String(names[i]), QString(), 1035, 195 + 180 * i, 2370, 180);
    }

    static void BuildClocks(Form1& f) {
        f.Label4 = NewLabel(&f, QStringLiteral("Label4"), QStringLiteral("Local Time:"), 7980, 135, 990, 225);
        f.Label5 = NewLabel(&f, QStringLiteral("Label5"), QString(), 8970, 135, 930, 225);
        f.Label7 = NewLabel(&f, QStringLiteral("Label7"), QStringLiteral("Zulu:"), 7980, 390, 990, 225);
        f.Label11 = NewLabel(&f, QStringLiteral("Label11"), QString(), 8970, 390, 930, 225);
        f.Label12 = NewLabel(&f, QStringLiteral("Label12"), QStringLiteral("Skelda B.0.032"), 7980, 825, 1920, 225);
        SetForeColour(f.Label12, Grey);
    }

    static void BuildPicture(Form1& f) {
        f.Picture1 = new PictureBox(&f);
        f.Picture1->setObjectName(QStringLiteral("Picture1"));
        f.Picture1->setFrameShape(QFrame::Panel);
        f.Picture1->setFrameShadow(QFrame::Sunken);
        Place(f.Picture1, 9930, 15, 1755, 1125);
    }

    // ---- The column left of the chart.

    static void BuildBulletin(Form1& f) {
        f.LeBulletin = NewFrame(&f, "LeBulletin", QStringLiteral("Prévisions :"), 30, 1155, 1710, 3345);
        auto* heading = new QFrame(f.LeBulletin);
        heading->setObjectName(QStringLiteral("Shape1"));
        SetBackColour(heading, Navy);
        Place(heading, 60, 225, 1590, 300);
        f.Shape1 = heading;
        auto* body = new QFrame(f.LeBulletin);
        body->setObjectName(QStringLiteral("Shape2"));
        body->setFrameShape(QFrame::Box);
        SetBackColour(body, RGB(255, 255, 255));
        SetForeColour(body, LightGrey);
        Place(body, 60, 570, 1590, 2715);
        f.Shape2 = body;

        // The column is narrow and a readout runs to a dozen lines: a slightly smaller letter keeps
        // it whole.
        QFont small = f.font();
        small.setPointSizeF(7.5);
        QFont bold = small;
        bold.setBold(true);
        f.TXTtitre =
            NewLabel(f.LeBulletin, QStringLiteral("TXTtitre"), QStringLiteral("Last Observation"), 105, 225, 1500, 300);
        f.TXTtitre->setFont(bold);
        SetForeColour(f.TXTtitre, RGB(255, 255, 255));
        f.TXTbulletin = NewLabel(f.LeBulletin, QStringLiteral("TXTbulletin"), QString(), 105, 615, 1515, 2640,
                                 Qt::AlignLeft | Qt::AlignTop);
        f.TXTbulletin->setFont(small);
        f.TXTbulletin->setWordWrap(true);
    }

    static void BuildHidden(Form1& f) {
        // Receives the text of fetched pages; never shown.
        f.wwwsource = new HiddenTextBox(&f);
        f.wwwsource->setObjectName(QStringLiteral("wwwsource"));
    }
};

void Form1::BuildControls() {
    setObjectName(QStringLiteral("Form1"));
    SetCaption(QStringLiteral("Skelda"));
    InitArtwork();
    setWindowIcon(QIcon(QStringLiteral(":/app/skelda.png")));
    setFixedSize(ToPixels(FormWidth), ToPixels(FormHeight));
    QFont f = font();
    f.setPointSizeF(8);
    setFont(f);

    Form1Builder::BuildGrid(*this);
    Form1Builder::BuildSlots(*this);
    Form1Builder::BuildScales(*this);
    Form1Builder::FillSymbols(*this);
    Form1Builder::BuildAirportList(*this);
    Form1Builder::BuildLastObservation(*this);
    Form1Builder::BuildClocks(*this);
    Form1Builder::BuildPicture(*this);
    Form1Builder::BuildBulletin(*this);
    Form1Builder::BuildHidden(*this);
}

}  // namespace skelda
