// Skelda: a desktop weather station for airports that lives in the notification area.
#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Skelda"));
    return 0;
}
