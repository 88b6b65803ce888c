#include "Window.h"

#include "Controls.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace skelda {

namespace {

// Where the window's frame must stand for its bottom right corner to be Marge twips from the
// screen's, given the frame it has now.
QPoint CoinBasDroit(const QWidget& Fenetre, double Marge) {
    const QScreen* ecran = Fenetre.screen() != nullptr ? Fenetre.screen() : QGuiApplication::primaryScreen();
    const QRect screen = ecran != nullptr ? ecran->geometry() : QRect();
    const QRect cadre = Fenetre.frameGeometry();
    const double Left =
        (screen.x() + screen.width()) * double(TwipsPerPixel) - cadre.width() * double(TwipsPerPixel) - Marge;
    const double Top =
        (screen.y() + screen.height()) * double(TwipsPerPixel) - cadre.height() * double(TwipsPerPixel) - Marge;
    return {ToPixels(Left), ToPixels(Top)};
}

// Places the window once more when it first comes to the screen. Its frame is known once the
// window manager has taken it in, which is done before the window is first exposed; then the
// watcher goes.
class PlacementAuPremierAffichage : public QObject {
public:
    PlacementAuPremierAffichage(QWidget& fenetre, double marge) : QObject(&fenetre), fenetre_(fenetre), marge_(marge) {
        fenetre_.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // The native window exists from the first show on: watch its exposure from there.
        if (watched == &fenetre_ && event->type() == QEvent::Show && fenetre_.windowHandle() != nullptr &&
            fenetre_.windowHandle() != natif_) {
            natif_ = fenetre_.windowHandle();
            natif_->installEventFilter(this);
        } else if (watched == natif_ && event->type() == QEvent::Expose && natif_->isExposed()) {
            const QPoint place = CoinBasDroit(fenetre_, marge_);
            if (fenetre_.pos() != place) fenetre_.move(place);
            deleteLater();
        }
        return false;
    }

private:
    QWidget& fenetre_;
    double marge_;
    QWindow* natif_ = nullptr;
};

}  // namespace

void GarderAuDessus(QWidget& Fenetre) {
    // Changing the flags of a window re-creates it hidden, at the same place and size; show()
    // brings it back, now above the others. WA_ShowWithoutActivating keeps the focus where it was.
    Fenetre.setWindowFlag(Qt::WindowStaysOnTopHint, true);
    Fenetre.setAttribute(Qt::WA_ShowWithoutActivating, true);
    Fenetre.show();
}

void PlacerEnBasADroite(QWidget& Fenetre, double Marge) {
    Fenetre.move(CoinBasDroit(Fenetre, Marge));
    if (!Fenetre.isVisible()) new PlacementAuPremierAffichage(Fenetre, Marge);
}

}  // namespace skelda
