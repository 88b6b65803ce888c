#include "StartUpPicture.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "Controls.h"

namespace skelda {

QString StartFormCaption() { return QStringLiteral("SKELDA - le zefir en temps réel"); }

QLabel* PlaceStartUpPicture(QWidget& form) {
    // Client area 3825 by 6405 twips, in the middle of the screen, where a start-up screen stands.
    form.resize(ToPixels(3825), ToPixels(6405));
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        form.move(screen->geometry().center() - QPoint(form.width() / 2, form.height() / 2));

    // The picture was drawn for a screen of 12 twips to a pixel, where it fills the box at its
    // own size; at our 15 twips to a pixel it is scaled to the box, so that the whole start-up
    // picture still covers the form.
    auto* picture = new QLabel(&form);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(QPixmap(QStringLiteral(":/app/splash.png")));
    picture->setScaledContents(true);
    Place(picture, -24, -24, 3900, 6528);
    return picture;
}

StartUpPicture::StartUpPicture() {
    setObjectName(QStringLiteral("StartUpPicture"));
    setWindowTitle(StartFormCaption());
    PlaceStartUpPicture(*this);
}

void StartUpPicture::ShowNow() {
    show();
    // The window system maps the window and exposes it through events, which the caller, about
    // to work without the event loop, would leave waiting: they are taken here until it is.
    QTimer enough;
    enough.setSingleShot(true);
    enough.start(500);
    const auto exposed = [this] { return windowHandle() && windowHandle()->isExposed(); };
    while (!exposed() && enough.isActive())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    repaint();
    // The painting goes out to the window system now.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace skelda
