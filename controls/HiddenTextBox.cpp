#include "HiddenTextBox.h"

namespace skelda {

HiddenTextBox::HiddenTextBox(QWidget* parent) : QWidget(parent) { setVisible(false); }

}  // namespace skelda
