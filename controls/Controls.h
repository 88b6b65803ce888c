// The standard controls of Skelda's forms, with the members that its procedures use by name.
//
// Geometry is in twips, 15 to a screen pixel. A position set in twips is kept in whole pixels,
// so reading it back gives a multiple of 15: 624.3 twips read back as 630. Procedures that set a
// size and read it back (the day chart does) rely on that.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

#include <cstdint>

namespace skelda {

inline constexpr int TwipsPerPixel = 15;

// The name of one element of a control array, "Jour(12)": the object name under which it is
// found, as the form designer named it.
inline QString Indexed(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

// Twip geometry of any widget, relative to its parent.
double LeftOf(const QWidget* w);
double TopOf(const QWidget* w);
double WidthOf(const QWidget* w);
double HeightOf(const QWidget* w);
void SetLeft(QWidget* w, double twips);
void SetTop(QWidget* w, double twips);
void SetWidth(QWidget* w, double twips);
void SetHeight(QWidget* w, double twips);
void Place(QWidget* w, double left, double top, double width, double height);
int ToPixels(double twips);  // to the nearest pixel, halves to even

// How many lines of a list box the user may select: one, or any number, each click toggling the
// line clicked (the "simple" multiple selection).
enum MultiSelectStyle : int { vbMultiSelectNone = 0, vbMultiSelectSimple = 1 };

// A list box: AddItem, Clear, ListIndex (-1 for none), ListCount, ItemData, Text, List(i),
// Selected, Tag. Setting ListIndex raises Click, as the user's click does: every left click of a
// line raises one, also on the line already selected, and a move by the keyboard raises one. A
// double click raises one Click for its first press, then DblClick. Only the left button
// selects; every button's press raises MouseDown. A failure of the Click that a setter raised
// comes out of the setter, as the failure of that statement (see RaiseEvent).
//
// With MultiSelect vbMultiSelectSimple, a click (or the space bar) toggles the line under it and
// raises Click; ListIndex is the line that has the focus (the first line until the user moves
// it), whether or not it is selected, and Selected tells each line's state. Setting Selected
// raises Click, changed or not.
class ListBox : public QListWidget {
    Q_OBJECT
public:
    explicit ListBox(QWidget* parent = nullptr);

    int MultiSelect() const { return multiSelect_; }
    // Set at design, before any line is added: vbMultiSelectNone or vbMultiSelectSimple.
    void SetMultiSelect(int style);

    void AddItem(const QString& text);
    void Clear();
    int ListIndex() const;
    // Selects a line and raises Click. -1 selects nothing; a line that doesn't exist is a
    // RuntimeError "Invalid property value" (380).
    void SetListIndex(int index);
    int ListCount() const { return count(); }
    int32_t ItemData(int index) const;  // Subscript out of range (9) for a missing line
    void SetItemData(int index, int32_t data);
    QString List(int index) const;
    QString Text() const;  // the selected line, or "" with none
    bool Selected(int index) const;
    void SetSelected(int index, bool selected);  // raises Click
    QString Tag;

signals:
    void Click();
    void DblClick();
    void MouseMove(int button, int shift, double x, double y);
    void MouseDown(int button, int shift, double x, double y);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool raising_ = false;
    int multiSelect_ = vbMultiSelectNone;
};

class ComboLines;

// A drop-down list: AddItem, Clear, ListIndex, ListCount, Text, Tag; setting ListIndex raises Click.
// Its lines are texts alone, kept in a plain list: the list of days holds a line for every day of
// the store, and the widget's general item model costs several times as much a line.
class ComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit ComboBox(QWidget* parent = nullptr);
    void AddItem(const QString& text);
    // AddItem of each text in turn, in one insertion: the list tells its views once.
    void AddItems(const QStringList& texts);
    void Clear();
    int ListIndex() const { return currentIndex(); }
    void SetListIndex(int index);  // Invalid property value (380) outside the list
    int ListCount() const { return count(); }
    QString Text() const { return currentText(); }
    QString Tag;

signals:
    void Click();

private:
    ComboLines* lines_;
};

// A timer with Enabled and Interval. Enabling a stopped timer starts a full interval; enabling one
// that runs already leaves its count alone, so a guard started again before it ran out still
// fires on time. Changing the interval of a running timer starts it over.
class Timer : public QObject {
    Q_OBJECT
public:
    explicit Timer(int intervalMs, bool enabled, QObject* parent = nullptr);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    int Interval() const { return interval_; }
    void SetInterval(int ms);
    // Delivers one tick now, as if the interval had run out (for tests, which don't wait).
    void Fire() { emit Tick(); }

signals:
    void Tick();

private:
    void Restart();
    QTimer timer_;
    bool enabled_;
    int interval_;
};

// A line control: drawn above the form's own drawing, read by its coordinates.
struct LineControl {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    int32_t BorderColor = 0;  // an RGB value (see Surface.h)
    bool Visible = true;
    bool Dotted = false;
    int BorderWidth = 1;
};

// A label that also keeps a Tag, as all controls do.
class Label : public QLabel {
    Q_OBJECT
public:
    explicit Label(QWidget* parent = nullptr);
    QString Tag;
    QString Caption() const { return text(); }
    void SetCaption(const QString& text) { setText(text); }

signals:
    void MouseMove(int button, int shift, double x, double y);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
};

enum MouseButtons : int { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };
int ButtonOf(Qt::MouseButtons buttons);
int ShiftOf(Qt::KeyboardModifiers modifiers);

}  // namespace skelda
