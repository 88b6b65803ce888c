// Form1's life: its loading, the lists of airports and dates, closing, the mouse on its
// background, and the painting of its line controls. The chart, the readout, the airport picture
// and the building of the controls have files of their own.
#include "Form1.h"

#include "Airports.h"
#include "Convert.h"
#include "ForecastWindow.h"
#include "FormParts.h"
#include "Forms.h"
#include "Log.h"
#include "PollCycle.h"
#include "Regional.h"
#include "RunTime.h"
#include "TrayForm.h"
#include "Window.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>

#include <memory>

namespace skelda {

namespace {
constexpr int vbFormControlMenu = 0;  // the user closed the window
constexpr int vbFormCode = 1;         // the program asked it to close
constexpr int vbAppWindows = 2;       // the session of the desktop is ending
}  // namespace

Form1::Form1(Forms& forms) : forms_(forms) {
    BuildControls();
    WireEvents();
    cycle_ = std::make_unique<PollCycle>(*this, forms_);
}

Form1::~Form1() = default;

QString Form1::DatabasePath() const { return forms_.services().applicationPath + QStringLiteral("/database.mdb"); }

RunTimeGuard& Form1::guard() const { return forms_.services().guard; }

void Form1::WireEvents() {
    On(guard(), ChoixDate, &ComboBox::Click, this, [this] { ChoixDate_Click(); });
    On(guard(), List1, &ListBox::Click, this, [this] { List1_Click(); });
    On(guard(), List1, &ListBox::MouseMove, this,
       [this](int button, int shift, double x, double y) { List1_MouseMove(button, shift, x, y); });
    On(guard(), List1, &ListBox::MouseDown, this,
       [this](int button, int shift, double x, double y) { List1_MouseDown(button, shift, x, y); });
    // Every control has mouse events of its own, whether or not it handles them: only the bare
    // background of the form pops up the tray's menu and moves the readout. Without this, Qt
    // would pass on to the form what a label, a picture or a frame leaves alone.
    for (QWidget* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        control->setAttribute(Qt::WA_NoMousePropagation);
    for (int i = 0; i < int(FKNT.size()); ++i) {
        // A slot label's mouse move is its own event, and reaches its handler.
        FKNT[i]->setMouseTracking(true);
        On(guard(), FKNT[i], &Label::MouseMove, this,
           [this, i](int button, int shift, double x, double y) { FKNT_MouseMove(i, button, shift, x, y); });
    }
    // The readout follows the pointer without a button pressed.
    setMouseTracking(true);
    OnSessionEnd(this, [this](SessionEnd& fin) { guard().Handle([&] { FinDeSession(fin); }); });
}

void Form1::Form_Load() {
    // The wind colours of the chart.
    FillPaletteForce(forms_.module1().PaletteForce);
    // Log the start.
    EcrireLog(QStringLiteral("Skelda Starting"), forms_.services().clock);
    // Place the window in the bottom right corner of the whole screen, 15 twips from its edges:
    // the taskbar isn't taken into account, so the window may stand partly under it. The frame
    // counts, as the window's Height and Width do; it is known only once the window is first
    // shown, and the window is placed again then.
    PlacerEnBasADroite(*this, 15);
    // The pressure line at 55 parts of 80 of the chart's height, 1015 hPa on a scale that runs
    // from 960 at the bottom to 1040 at the top.
    Line1015.Y1 = MaxFKNT.Y1 - (MaxFKNT.Y1 - MaxFKNT.Y2) * 55 / 80;
    Line1015.Y2 = Line1015.Y1;
    update();
    // Fill the list of airports. Filling it raises its Click, which draws nothing yet
    // (ChargementFini is false). With no active airport the list refuses its line 0 (380), and the
    // start ends there.
    ListeAdapter<ListBox> liste(*List1);
    ChargerAeroports(liste, forms_.module1().TableIDA, DatabasePath());
    // Fill the list of dates and select the newest.
    RemplirDates();
    ChoixDate->SetListIndex(ChoixDate->Tag.toInt());
    // Select the preferred airport.
    List1->SetListIndex(List1->Tag.toInt());
    // The load is over: the chart's first drawing.
    ChargementFini = -1;
    TracerCourbe();
}

void Form1::ChargerAeroportsList1() {
    ListeAdapter<ListBox> liste(*List1);
    ChargerAeroports(liste, forms_.module1().TableIDA, DatabasePath());
}

void Form1::RemplirDates() {
    // Empty the list of dates.
    ChoixDate->Clear();
    ChoixDate->Tag = QStringLiteral("0");
    // The dates of the observations, each once, in order.
    BaseReleves = OpenDatabase(DatabasePath());
    JeuReleves = BaseReleves.OpenRecordset(
        QStringLiteral("SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"),
        dbOpenSnapshot);
    // Every day, oldest first, and the Tag on the last entry, the newest date. The days go into
    // the list together once all are read: ten years are 3652 lines, and the list tells its views
    // of one insertion rather than of each line. Nothing runs between the lines, so nobody can
    // tell the difference.
    QStringList jours;
    while (!JeuReleves.Eof()) {
        jours.append(JeuReleves.Fields(QStringLiteral("daterelevé")).ToText());
        JeuReleves.MoveNext();
    }
    ChoixDate->AddItems(jours);
    const int compteur = int(jours.size());
    if (compteur > 0) ChoixDate->Tag = QString::number(compteur - 1);
    // Close the recordset and the database.
    JeuReleves.Close();
    BaseReleves.Close();
    JeuReleves = Recordset();
    BaseReleves = Database();
    // An empty table: today alone, and the chart will be empty.
    if (compteur == 0) ChoixDate->AddItem(DateText(forms_.services().clock.Now().date()));
}

void Form1::Form_QueryUnload(int& Cancel, int /*UnloadMode*/) {
    // The system lives on in the notification area: whoever asks, the window only hides.
    Cancel = 1;
    hide();
    Tag = QStringLiteral("MASQUE");
}

void Form1::FinDeSession(SessionEnd& Fin) {
    int Cancel = 0;
    Form_QueryUnload(Cancel, vbAppWindows);
    // Only a program that may still interact with the user can refuse: a forced logout ends it
    // all the same, without "Skelda Terminated".
    if (Cancel != 0 && Fin.AllowsInteraction()) Fin.Cancel();
}

void Form1::closeEvent(QCloseEvent* event) {
    int Cancel = 0;
    guard().Handle([&] { Form_QueryUnload(Cancel, event->spontaneous() ? vbFormControlMenu : vbFormCode); });
    if (Cancel != 0)
        event->ignore();
    else
        event->accept();
}

void Form1::Form_MouseDown(int Button, int /*Shift*/, double /*X*/, double /*Y*/) {
    if (Button != vbRightButton) return;
    // The tray's menu serves the main window too, with the same effects. Like the tray, this
    // waits until the menu closes.
    forms_.Get<TrayForm>().PopupMenu();
}

void Form1::ChoixDate_Click() { TracerCourbe(); }

void Form1::List1_Click() { TracerCourbe(); }

void Form1::List1_MouseMove(int /*Button*/, int Shift, double X, double Y) {
    // The list's own coordinates fall left of the chart, so the readout goes away as the
    // pointer enters the list.
    Form_MouseMove(0, Shift, X, Y);
}

void Form1::List1_MouseDown(int Button, int /*Shift*/, double /*X*/, double /*Y*/) {
    if (Button != vbRightButton) {
        TracerCourbe();
        return;
    }
    // No poll may start while the fetch blocks the window.
    SetTEnabled(false);
    const int16_t numero = CInt(double(List1->ItemData(List1->ListIndex())));
    BaseReleves = OpenDatabase(DatabasePath());
    JeuReleves = BaseReleves.OpenRecordset(QStringLiteral("Aéroports"), dbOpenDynaset);
    JeuReleves.FindFirst(QStringLiteral("IDX = ") + QString::number(numero));
    if (!JeuReleves.NoMatch()) {
        // Writing the heading loads the forecast window, without showing it.
        ForecastWindow& prevision = forms_.Get<ForecastWindow>();
        prevision.SetNomvilleaeroport(JeuReleves.Fields(QStringLiteral("ville")).Concat() + QStringLiteral(" - ") +
                                      JeuReleves.Fields(QStringLiteral("aéroport")).Concat());
        const Variant code = JeuReleves.Fields(QStringLiteral("codeforecast"));
        if (code.IsNull()) {
            forms_.services().boxes.MsgBox(QStringLiteral("No forecast code for city"), vbOKOnly, QString());
        } else {
            // An empty code isn't caught here: it goes to the portal as it is.
            QString Code = code.ToText();
            prevision.ChargerPrevision(Code);
        }
    }
    JeuReleves.Close();
    BaseReleves.Close();
    JeuReleves = Recordset();
    BaseReleves = Database();
    SetTEnabled(true);
}

void Form1::TestPrevision() {
    QString Code = QStringLiteral("test");
    forms_.Get<ForecastWindow>().ChargerPrevision(Code);
}

void Form1::mousePressEvent(QMouseEvent* event) {
    SurfaceWidget::mousePressEvent(event);
    const QPointF at = PixelToScale(event->position());
    guard().Handle([&] { Form_MouseDown(ButtonOf(event->button()), ShiftOf(event->modifiers()), at.x(), at.y()); });
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    SurfaceWidget::mouseMoveEvent(event);
    const QPointF at = PixelToScale(event->position());
    guard().Handle([&] { Form_MouseMove(ButtonOf(event->buttons()), ShiftOf(event->modifiers()), at.x(), at.y()); });
}

void Form1::paintEvent(QPaintEvent* event) {
    SurfaceWidget::paintEvent(event);
    // Line controls stand above the form's drawing: the grid stays visible over the bars.
    QPainter painter(this);
    for (const LineControl& line : Vline) PaintLine(painter, line);
    for (const auto& [index, line] : Line1) PaintLine(painter, line);
    PaintLine(painter, Line1015);
    PaintLine(painter, MaxFKNT);
}

}  // namespace skelda
