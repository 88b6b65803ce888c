// The start form's start-up screen: its caption, its size and place, and the picture that covers
// it; and that screen on its own, for a moment before the start form can load.
//
// The first start on a database of an earlier version brings the file up to date before the
// start form loads, and on years of observations that takes a second or two: the start-up
// picture stands meanwhile, where and as the start form shows it next.
#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace skelda {

// The start form's caption at design.
QString StartFormCaption();

// Gives Form the start form's client size, in the middle of the primary screen, and a picture box
// named "Picture1" that covers it with the start-up picture; gives that picture box.
QLabel* PlaceStartUpPicture(QWidget& form);

// The start-up screen alone: a window with the start form's caption, size, place and picture.
class StartUpPicture : public QWidget {
public:
    StartUpPicture();

    // Shows the window and paints it before returning, so that it stands while the caller works
    // without the event loop. Events are let in only until the window system has shown it (half
    // a second at most), and no input is taken.
    void ShowNow();
};

}  // namespace skelda
