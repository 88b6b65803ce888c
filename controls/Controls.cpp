#include "Controls.h"

#include "Convert.h"
#include "Failure.h"
#include "RunTime.h"

#include <QAbstractListModel>
#include <QMouseEvent>

namespace skelda {

int ToPixels(double twips) { return int(RoundHalfEven(twips / TwipsPerPixel)); }

double LeftOf(const QWidget* w) { return double(w->x()) * TwipsPerPixel; }
double TopOf(const QWidget* w) { return double(w->y()) * TwipsPerPixel; }
double WidthOf(const QWidget* w) { return double(w->width()) * TwipsPerPixel; }
double HeightOf(const QWidget* w) { return double(w->height()) * TwipsPerPixel; }
void SetLeft(QWidget* w, double twips) { w->move(ToPixels(twips), w->y()); }
void SetTop(QWidget* w, double twips) { w->move(w->x(), ToPixels(twips)); }
void SetWidth(QWidget* w, double twips) { w->resize(std::max(0, ToPixels(twips)), w->height()); }
void SetHeight(QWidget* w, double twips) { w->resize(w->width(), std::max(0, ToPixels(twips))); }
void Place(QWidget* w, double left, double top, double width, double height) {
    w->setGeometry(ToPixels(left), ToPixels(top), std::max(0, ToPixels(width)), std::max(0, ToPixels(height)));
}

int ButtonOf(Qt::MouseButtons buttons) {
    int b = 0;
    if (buttons & Qt::LeftButton) b |= vbLeftButton;
    if (buttons & Qt::RightButton) b |= vbRightButton;
    if (buttons & Qt::MiddleButton) b |= vbMiddleButton;
    return b;
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
    int s = 0;
    if (modifiers & Qt::ShiftModifier) s |= 1;
    if (modifiers & Qt::ControlModifier) s |= 2;
    if (modifiers & Qt::AltModifier) s |= 4;
    return s;
}

// ---- ListBox

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setMouseTracking(true);
    // One Click per user's change: a new current line in a plain list, a toggled line in a
    // multiple-selection one (where the current line may move without changing the selection).
    connect(this, &QListWidget::currentRowChanged, this, [this] {
        if (!raising_ && multiSelect_ == vbMultiSelectNone) emit Click();
    });
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!raising_ && multiSelect_ != vbMultiSelectNone) emit Click();
    });
}

void ListBox::SetMultiSelect(int style) {
    if (style != vbMultiSelectNone && style != vbMultiSelectSimple) throw RuntimeError(InvalidPropertyValue);
    multiSelect_ = style;
    setSelectionMode(style == vbMultiSelectSimple ? QAbstractItemView::MultiSelection
                                                  : QAbstractItemView::SingleSelection);
}

void ListBox::AddItem(const QString& text) {
    addItem(text);
    // A multiple-selection list always has a line with the focus, the first until the user moves
    // it, so that ListIndex names a line as soon as there is one.
    if (multiSelect_ != vbMultiSelectNone && currentRow() < 0) {
        raising_ = true;
        selectionModel()->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
        raising_ = false;
    }
}

void ListBox::Clear() {
    raising_ = true;
    clear();
    raising_ = false;
}

int ListBox::ListIndex() const { return currentRow(); }

void ListBox::SetListIndex(int index) {
    if (index < -1 || index >= count()) throw RuntimeError(InvalidPropertyValue);
    raising_ = true;
    if (multiSelect_ != vbMultiSelectNone) {
        // In a multiple-selection list the index only moves the focus: the selection stays.
        selectionModel()->setCurrentIndex(index >= 0 ? model()->index(index, 0) : QModelIndex(),
                                          QItemSelectionModel::NoUpdate);
    } else {
        setCurrentRow(index);
        if (index >= 0) item(index)->setSelected(true);
    }
    raising_ = false;
    RaiseEvent([this] { emit Click(); });
}

int32_t ListBox::ItemData(int index) const {
    if (index < 0 || index >= count()) throw RuntimeError(SubscriptOutOfRange);
    return item(index)->data(Qt::UserRole).toInt();
}

void ListBox::SetItemData(int index, int32_t data) {
    if (index < 0 || index >= count()) throw RuntimeError(SubscriptOutOfRange);
    item(index)->setData(Qt::UserRole, data);
}

QString ListBox::List(int index) const {
    if (index < 0 || index >= count()) return {};
    return item(index)->text();
}

QString ListBox::Text() const { return List(currentRow()); }

bool ListBox::Selected(int index) const {
    if (index < 0 || index >= count()) throw RuntimeError(SubscriptOutOfRange);
    return item(index)->isSelected();
}

void ListBox::SetSelected(int index, bool selected) {
    if (index < 0 || index >= count()) throw RuntimeError(SubscriptOutOfRange);
    raising_ = true;
    item(index)->setSelected(selected);
    raising_ = false;
    RaiseEvent([this] { emit Click(); });
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    // Only the left button selects: a press of another one leaves the selection where it was,
    // so that a right click acts on the line selected before it.
    if (event->button() == Qt::LeftButton) {
        const int avant = currentRow();
        QListWidget::mousePressEvent(event);
        // Every click of a line raises Click, also on the line that is already selected: a new
        // line has raised it already, through the change of the current row.
        if (multiSelect_ == vbMultiSelectNone && currentRow() == avant &&
            itemAt(event->position().toPoint()) != nullptr)
            emit Click();
    }
    emit MouseDown(ButtonOf(event->button()), ShiftOf(event->modifiers()), event->position().x() * TwipsPerPixel,
                   event->position().y() * TwipsPerPixel);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) { QListWidget::mouseReleaseEvent(event); }

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // A double click of another button than the left selects nothing and raises nothing more
    // than its first press did.
    if (event->button() != Qt::LeftButton) return;
    // Its first press raised Click; the second raises none on the same line, only DblClick.
    QListWidget::mouseDoubleClickEvent(event);
    emit DblClick();
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    QListWidget::mouseMoveEvent(event);
    emit MouseMove(ButtonOf(event->buttons()), ShiftOf(event->modifiers()), event->position().x() * TwipsPerPixel,
                   event->position().y() * TwipsPerPixel);
}

// ---- ComboBox

// The lines of a ComboBox: one text each, shown and edited as it is. The widget's own calls
// (insertItem, setItemText, removeItem, clear) go through insertRows, setData and removeRows.
class ComboLines : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void Append(const QStringList& texts) {
        if (texts.isEmpty()) return;
        const int row = int(texts_.size());
        beginInsertRows(QModelIndex(), row, row + int(texts.size()) - 1);
        texts_.append(texts);
        endInsertRows();
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : int(texts_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!Holds(index) || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
        return texts_.at(index.row());
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (!Holds(index) || (role != Qt::DisplayRole && role != Qt::EditRole)) return false;
        texts_[index.row()] = value.toString();
        emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
        return true;
    }

    bool insertRows(int row, int count, const QModelIndex& parent) override {
        if (parent.isValid() || row < 0 || row > texts_.size() || count < 1) return false;
        beginInsertRows(QModelIndex(), row, row + count - 1);
        texts_.insert(row, count, QString());
        endInsertRows();
        return true;
    }

    bool removeRows(int row, int count, const QModelIndex& parent) override {
        if (parent.isValid() || row < 0 || count < 1 || row + count > texts_.size()) return false;
        beginRemoveRows(QModelIndex(), row, row + count - 1);
        texts_.remove(row, count);
        endRemoveRows();
        return true;
    }

private:
    bool Holds(const QModelIndex& index) const {
        return index.isValid() && !index.parent().isValid() && index.row() < texts_.size();
    }

    QStringList texts_;
};

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent), lines_(new ComboLines(this)) {
    setModel(lines_);
    connect(this, &QComboBox::activated, this, [this] { emit Click(); });
}

// As addItem does: the first line of an empty list becomes the current one.
void ComboBox::AddItem(const QString& text) { lines_->Append(QStringList{text}); }

void ComboBox::AddItems(const QStringList& texts) { lines_->Append(texts); }

void ComboBox::Clear() {
    QSignalBlocker block(this);
    clear();
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= count()) throw RuntimeError(InvalidPropertyValue);
    {
        QSignalBlocker block(this);
        setCurrentIndex(index);
    }
    RaiseEvent([this] { emit Click(); });
}

// ---- Timer

Timer::Timer(int intervalMs, bool enabled, QObject* parent)
    : QObject(parent), enabled_(enabled), interval_(intervalMs) {
    connect(&timer_, &QTimer::timeout, this, [this] { emit Tick(); });
    Restart();
}

void Timer::SetEnabled(bool enabled) {
    // Enabled again while it runs: the interval already begun goes on. The poll cycle's time-out
    // depends on it: each connection enables it, and a request that got no answer must still
    // run out 20 seconds after it went, even while later polls connect.
    if (enabled && enabled_ && timer_.isActive()) return;
    enabled_ = enabled;
    Restart();
}

void Timer::SetInterval(int ms) {
    interval_ = ms;
    Restart();
}

void Timer::Restart() {
    timer_.stop();
    if (enabled_ && interval_ > 0) timer_.start(interval_);
}

// ---- Label

Label::Label(QWidget* parent) : QLabel(parent) {}

void Label::mouseMoveEvent(QMouseEvent* event) {
    QLabel::mouseMoveEvent(event);
    emit MouseMove(ButtonOf(event->buttons()), ShiftOf(event->modifiers()), event->position().x() * TwipsPerPixel,
                   event->position().y() * TwipsPerPixel);
}

}  // namespace skelda
