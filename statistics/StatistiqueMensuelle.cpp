// The monthly window's controls at their design places (twips, 15 to a pixel), its load, and its
// small handlers: the lists, the check boxes, the pop-up text and the closing.
#include "StatistiqueMensuelle.h"

#include "Airports.h"
#include "Artwork.h"
#include "Convert.h"
#include "Failure.h"
#include "FormParts.h"
#include "Forms.h"
#include "RunTime.h"
#include "SurfacePainting.h"
#include "Text.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

namespace skelda {

namespace {

constexpr double FormWidth = 10635;  // client area, twips
constexpr double FormHeight = 5790;
// The top of Picture1 as designed, in twips. The picture box keeps its place in whole pixels and
// would read back 210, which puts every label of the wind scale 6 twips low: the scale is
// computed from this value.
constexpr double Picture1Top = 204;

constexpr Color Red = RGB(255, 0, 0);
constexpr Color Navy = RGB(0, 0, 128);
constexpr Color Olive = RGB(128, 128, 0);

QFont Arial(double points) {
    QFont f(QStringLiteral("Arial"));
    f.setPointSizeF(points);
    return f;
}

ListBox* NewList(QWidget* parent, const char* name, double left, double top, double width, double height) {
    auto* list = new ListBox(parent);
    list->setObjectName(QString::fromUtf8(name));
    Place(list, left, top, width, height);
    return list;
}

// A label of the scales beside the plot: Arial 6.75, transparent.
Label* ScaleLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top, Color colour,
                  Qt::Alignment align) {
    Label* label = NewLabel(parent, name, caption, left, top, 495, 195, align | Qt::AlignVCenter);
    label->setFont(Arial(6.75));
    SetForeColour(label, colour);
    return label;
}

}  // namespace

StatistiqueMensuelle::StatistiqueMensuelle(Forms& forms) : forms_(forms) {
    BuildControls();
    BuildMenu();
    WireEvents();
    drawingSurface_ = Picture1;
}

StatistiqueMensuelle::~StatistiqueMensuelle() = default;

void ProvideMonthWindow(Forms& forms) {
    forms.Provide<StatistiqueMensuelle>(&StatistiqueMensuelle::Load);
    forms.ProvideAs<MonthWindow, StatistiqueMensuelle>();
}

QString StatistiqueMensuelle::DatabasePath() const {
    return forms_.services().applicationPath + QStringLiteral("/database.mdb");
}

QString StatistiqueMensuelle::MonthQuery() const {
    // No blank around the last equals sign, and no order: the days come as the saved query gives them.
    return QStringLiteral(
               "select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir] where "
               "numaéroport = ") +
           QString::number(Aeroports->ItemData(Aeroports->ListIndex())) + QStringLiteral(" and mois = ") +
           QString::number(Mois->ListIndex() + 1) + QStringLiteral(" and annee=") + Annee->List(Annee->ListIndex());
}

RunTimeGuard& StatistiqueMensuelle::guard() const { return forms_.services().guard; }

void StatistiqueMensuelle::BuildControls() {
    setObjectName(QStringLiteral("StatistiqueMensuelle"));
    setWindowTitle(QStringLiteral("Monthly Statistic"));
    // A fixed dialog border with only the close box, and out of the task bar.
    setWindowFlags(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::MSWindowsFixedSizeDialogHint);
    // Each opening is a fresh load: closing the window unloads it.
    setAttribute(Qt::WA_DeleteOnClose);
    InitArtwork();

    Client = new SurfaceWidget(this);
    Client->setObjectName(QStringLiteral("Client"));
    Client->setFixedSize(ToPixels(FormWidth), ToPixels(FormHeight));
    Client->setMouseTracking(true);
    setCentralWidget(Client);
    QFont f = font();
    f.setPointSizeF(8.25);
    Client->setFont(f);

    Label1 = NewLabel(Client, QStringLiteral("Label1"), QStringLiteral("Airport"), 120, 60, 1335, 255,
                      Qt::AlignLeft | Qt::AlignTop);
    Aeroports = NewList(Client, "Aeroports", 60, 300, 2055, 1035);
    Aeroports->AddItem(QStringLiteral("Aeroports"));
    Annee = NewList(Client, "Année", 840, 1800, 1275, 255);
    for (const char* year : {"2003", "2004", "2005"}) Annee->AddItem(QLatin1String(year));
    Label2 = NewLabel(Client, QStringLiteral("Label2"), QStringLiteral("Mois"), 120, 1980, 1335, 255,
                      Qt::AlignLeft | Qt::AlignTop);
    Mois = NewList(Client, "Mois", 60, 2160, 2055, 2010);
    for (const char* month : {"January", "Febuary", "March", "April", "May", "June", "July", "August", "Septemberr",
                              "October", "November", "Décember"})
        Mois->AddItem(QString::fromUtf8(month));

    const char* courbes[] = {"Pressure Curve", "Temperature Curve", "Wind Curve"};
    const Color couleurs[] = {RGB(255, 255, 0), RGB(255, 0, 255), RGB(0, 0, 255)};
    const char* bulles[] = {"Montrer ou masquer la courbe de pression (moyenne + mini + maxi)",
                            "Montrer ou masquer la courbe de température (moyenne + mini + maxi)",
                            "Montrer ou masquer la courbe de zefir (moyenne + maxi + heure de maxi)"};
    for (int i = 1; i <= 3; ++i) {
        auto* box = new CheckBox(Client);
        box->setObjectName(Indexed("CheckCourbe", i));
        box->setText(QString::fromUtf8(courbes[i - 1]));
        box->SetForeColor(couleurs[i - 1]);
        box->setToolTip(QString::fromUtf8(bulles[i - 1]));
        box->setChecked(true);
        Place(box, 60, 4620 + 240 * (i - 1), 2055, 255);
        CheckCourbe[i] = box;
    }

    TxtTemp[0] = ScaleLabel(Client, Indexed("TxtTemp", 0), QStringLiteral("0 nds"), 2160, 5100, Navy, Qt::AlignRight);
    TxtDeg[1] = ScaleLabel(Client, Indexed("TxtDeg", 1), QStringLiteral("40 °C"), 10200, 120, Navy, Qt::AlignLeft);
    TxtDeg[2] = ScaleLabel(Client, Indexed("TxtDeg", 2), QStringLiteral("20 °C"), 10200, 1320, Navy, Qt::AlignLeft);
    TxtDeg[3] = ScaleLabel(Client, Indexed("TxtDeg", 3), QStringLiteral("1015"), 10200, 1680, Olive, Qt::AlignLeft);
    TxtDeg[0] = ScaleLabel(Client, Indexed("TxtDeg", 0), QStringLiteral("0 °C"), 10200, 2580, Navy, Qt::AlignLeft);

    // ---- The plot, with its controls; positions relative to it.
    Picture1 = new PlotPicture(Client);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Place(Picture1, 2640, Picture1Top, 7455, 5535);
    Picture1->SetPicture(QImage(QStringLiteral(":/statistics/plot.png")));
    Lverticale = NewLine(0, 5000, 0, 0, Red);
    Lhorizontale = NewLine(0, 5000, 7440, 5000, Red);
    Line2 = NewLine(7440, 5000, 7440, 0, Red);
    Line3 = NewLine(0, 0, 7440, 0, Red);
    Line1[0] = NewLine(0, 2475, 7440, 2475, RGB(128, 255, 255), true);
    Line1[1] = NewLine(0, 1560, 7440, 1560, RGB(255, 255, 192), true);
    Shape1 = QRect(0, 4980, 7455, 555);
    Picture1->lines = {&Lverticale, &Lhorizontale, &Line2, &Line3, &Line1[0], &Line1[1]};
    Picture1->shapes = {&Shape1};
    Picture1->shapeColour = Red;
    for (int i = 1; i <= 31; ++i) {
        // Neighbours overlap by 15: each cell is 255 wide, 240 apart.
        Jour[i] = NewLabel(Picture1, Indexed("Jour", i), QString(), 240 * (i - 1), 5280, 255, 255, Qt::AlignCenter);
        Jour[i]->setFont(Arial(8.25));
        SetBackColour(Jour[i], RGB(224, 224, 224));
        Jour[i]->setMouseTracking(true);
    }
    Bulletin =
        NewLabel(Picture1, QStringLiteral("Bulletin"), QString(), 60, 60, 2055, 2295, Qt::AlignLeft | Qt::AlignTop);
    SetBackColour(Bulletin, RGB(192, 255, 255));
    // A day's longest line ("Secteur West North West °") fits the label's width in this size.
    Bulletin->setFont(Arial(7.5));
    Bulletin->setFrameShape(QFrame::Box);
    Bulletin->setVisible(false);
    Bulletin->raise();

    // Controls have mouse events of their own: a move over one of them isn't the form's.
    for (QWidget* child : Client->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        child->setAttribute(Qt::WA_NoMousePropagation);
    for (int i = 1; i <= 31; ++i) Jour[i]->setAttribute(Qt::WA_NoMousePropagation);
    Bulletin->setAttribute(Qt::WA_NoMousePropagation);

    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void StatistiqueMensuelle::BuildMenu() {
    MenuStat = menuBar()->addMenu(QStringLiteral("Menu"));
    MenuStat->setObjectName(QStringLiteral("MenuStat"));
    MenuStatImprimer = MenuStat->addAction(QStringLiteral("Imprimer..."));
    MenuStatImprimer->setObjectName(QStringLiteral("MenuStatImprimer"));
    MenuStatFermer = MenuStat->addAction(QStringLiteral("Fermer"));
    MenuStatFermer->setObjectName(QStringLiteral("MenuStatFermer"));
    adjustSize();
    // The window opens in the middle of the screen.
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame = frameGeometry();
        frame.moveCenter(screen->geometry().center());
        move(frame.topLeft());
    }
}

void StatistiqueMensuelle::WireEvents() {
    On(guard(), Aeroports, &ListBox::Click, this, [this] { Aeroports_Click(); });
    On(guard(), Mois, &ListBox::Click, this, [this] { Mois_Click(); });
    for (const auto& [index, box] : CheckCourbe)
        On(guard(), box, &CheckBox::Click, this, [this, i = index] { CheckCourbe_Click(i); });
    for (int i = 1; i <= 31; ++i)
        On(guard(), Jour[i], &Label::MouseMove, this,
           [this, i](int button, int shift, double x, double y) { Jour_MouseMove(i, button, shift, x, y); });
    On(guard(), MenuStatImprimer, &QAction::triggered, this, [this] { MenuStatImprimer_Click(); });
    On(guard(), MenuStatFermer, &QAction::triggered, this, [this] { MenuStatFermer_Click(); });
    Client->installEventFilter(this);
}

void StatistiqueMensuelle::Form_Load() {
    // The wind colours, so that this window doesn't depend on the main window's load.
    FillPaletteForce(forms_.module1().PaletteForce);
    // Number the day cells "01" to "31".
    for (int i = 1; i <= 31; ++i) Jour[i]->SetCaption(FormatDigits(i, 2));
    // Fill the airports and select today's month and year. Each raises a Click that reaches
    // AfficherMois, which draws nothing yet. The year list holds 2003 to 2005 only: any other year
    // is refused here, and the load fails.
    ListeAdapter<ListBox> liste(*Aeroports);
    ChargerAeroports(liste, forms_.module1().TableIDA, DatabasePath());
    const QDate today = forms_.services().clock.Now().date();
    Mois->SetListIndex(today.month() - 1);
    // A year before 2003 is outside the list as well. 2002 would give -1, which a list takes for
    // "no line selected", and the first click would then never return (AfficherMois loops on a
    // query that can't open): it is refused as every other year outside the list is.
    const int annee = today.year() - 2003;
    if (annee < 0) throw RuntimeError(InvalidPropertyValue);
    Annee->SetListIndex(annee);
    // The wind scale, one label every 5 knots beside the plot, from the plot's own lines and its
    // design top: 5106.5 - 100 i, to the even whole number, 4606 down to 106.
    for (int i = 1; i <= 50; ++i) {
        if (i % 5 != 0) continue;
        Label* label = ScaleLabel(Client, Indexed("TxtTemp", i), QString(), LeftOf(TxtTemp[0]), TopOf(TxtTemp[0]), Navy,
                                  Qt::AlignRight);
        label->setAttribute(Qt::WA_NoMousePropagation);
        TxtTemp[i] = label;
        SetTop(label,
               CInt(Picture1Top + Lverticale.Y1 - ((Lverticale.Y1 - Lverticale.Y2) * i) / 50 - HeightOf(label) / 2));
        label->SetCaption(QString::number(i) + QStringLiteral(" nds"));
        label->setVisible(true);
    }
    // The load is over: clicks draw the month from now on.
    StatPrete = -1;
}

void StatistiqueMensuelle::Aeroports_Click() { AfficherMois(); }

void StatistiqueMensuelle::Mois_Click() { AfficherMois(); }

void StatistiqueMensuelle::CheckCourbe_Click(int Index) {
    CheckBox& box = *CheckCourbe.at(Index);
    if (box.Value() == 0) {
        // Unchecked: the box reads grey and keeps its own colour for its return.
        box.Tag = QString::number(box.ForeColor());
        box.SetForeColor(RGB(128, 128, 128));
    } else {
        box.SetForeColor(CLng(box.Tag));
    }
    AfficherMois();
}

void StatistiqueMensuelle::Jour_MouseMove(int Index, int, int, double, double) {
    // The text stands in the plot's top left corner and doesn't follow the pointer.
    // Visible is the label's own flag, whether or not the window is on the screen.
    if (Bulletin->isHidden()) Bulletin->setVisible(true);
    Bulletin->SetCaption(JourCell(Index).Tag);
}

void StatistiqueMensuelle::Form_MouseMove(int, int, double, double) {
    if (!Bulletin->isHidden()) Bulletin->setVisible(false);
}

void StatistiqueMensuelle::MenuStatFermer_Click() {
    Client->Cls();
    close();
}

void StatistiqueMensuelle::Form_Unload(int&) { StatPrete = 0; }

void StatistiqueMensuelle::closeEvent(QCloseEvent* event) {
    int Cancel = 0;
    guard().Handle([&] { Form_Unload(Cancel); });
    if (Cancel != 0)
        event->ignore();
    else
        event->accept();
}

bool StatistiqueMensuelle::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Client && event->type() == QEvent::MouseMove) {
        auto* move = static_cast<QMouseEvent*>(event);
        const QPointF at = Client->PixelToScale(move->position());
        guard().Handle([&] { Form_MouseMove(ButtonOf(move->buttons()), ShiftOf(move->modifiers()), at.x(), at.y()); });
    }
    return QMainWindow::eventFilter(watched, event);
}

Label& StatistiqueMensuelle::JourCell(int index) const {
    if (index < 1 || index > 31) throw RuntimeError(SubscriptOutOfRange);
    return *Jour[static_cast<size_t>(index)];
}

}  // namespace skelda
