// The message boxes of the shipped program: real boxes on the screen.
#pragma once

#include "MessageBoxes.h"

namespace skelda {

class ScreenMessageBoxes : public MessageBoxes {
public:
    int MsgBox(const QString& prompt, int style, const QString& title) override;
    void RuntimeErrorBox(int number, const QString& description) override;
};

}  // namespace skelda
