#include "ScreenMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

namespace skelda {

int ScreenMessageBoxes::MsgBox(const QString& prompt, int style, const QString& title) {
    QMessageBox box;
    box.setWindowTitle(title.isEmpty() ? QApplication::applicationName() : title);
    box.setText(prompt);
    switch (style & 0x70) {
        case vbCritical:
            box.setIcon(QMessageBox::Critical);
            break;
        case vbQuestion:
            box.setIcon(QMessageBox::Question);
            break;
        case vbExclamation:
            box.setIcon(QMessageBox::Warning);
            break;
        default:
            break;
    }
    if ((style & 0x0f) == vbYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        return box.exec() == QMessageBox::Yes ? vbYes : vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return vbOK;
}

void ScreenMessageBoxes::RuntimeErrorBox(int number, const QString& description) {
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Skelda"), RuntimeErrorText(number, description),
                    QMessageBox::Ok);
    box.exec();
}

}  // namespace skelda
