// A text box that the user never sees: a form's scratch field for a fetched page. It keeps any
// text whole, however long, line ends included, and never lays it out for the screen, so that
// putting a page of 40 KB into it costs a copy and nothing more.
#pragma once

#include <QString>
#include <QWidget>

namespace skelda {

class HiddenTextBox : public QWidget {
    Q_OBJECT
public:
    // Made hidden, and never drawn if shown.
    explicit HiddenTextBox(QWidget* parent = nullptr);
    QString Text() const { return text_; }
    void SetText(const QString& text) { text_ = text; }
    QString Tag;

private:
    QString text_;
};

}  // namespace skelda
