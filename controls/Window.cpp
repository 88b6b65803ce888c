#include "Window.h"

namespace skelda {

void GarderAuDessus(QWidget& Fenetre) {
    // Changing the flags of a window re-creates it hidden, at the same place and size; show()
    // brings it back, now above the others. WA_ShowWithoutActivating keeps the focus where it was.
    Fenetre.setWindowFlag(Qt::WindowStaysOnTopHint, true);
    Fenetre.setAttribute(Qt::WA_ShowWithoutActivating, true);
    Fenetre.show();
}

}  // namespace skelda
