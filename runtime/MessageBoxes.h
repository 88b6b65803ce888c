// The message-box seam. Every box that Skelda shows goes through here, so that tests can read the
// question and give the answer.
#pragma once

#include <QString>

namespace skelda {

// Buttons, icon and answers, with the run time's values.
enum MsgBoxStyle : int { vbOKOnly = 0, vbYesNo = 4, vbCritical = 16, vbQuestion = 32, vbExclamation = 48 };
enum MsgBoxResult : int { vbOK = 1, vbYes = 6, vbNo = 7 };

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows Prompt with the buttons and icon of Style under Title; gives the button pressed.
    virtual int MsgBox(const QString& prompt, int style, const QString& title) = 0;
    // The run-time error box: a failure that nothing handled. The program ends after it.
    virtual void RuntimeErrorBox(int number, const QString& description) = 0;
};

// The words of the run-time error box: "Run-time error '6':" and, after an empty line, "Overflow".
QString RuntimeErrorText(int number, const QString& description);

}  // namespace skelda
