// How each of the program's forms is made: told once, here, for the program and for the tests
// that load the forms as the program does.
#pragma once

namespace skelda {

class Forms;

// Tells Forms how to make every form of the program and which form serves each narrow interface:
// the main window with its poll cycle wired, the start form (the tray's form), the hand-entry
// form, the airport forms, the monthly window, the forecast window and the news window. Nothing
// is loaded here; each form still loads at its first touch.
void ProvideForms(Forms& forms);

}  // namespace skelda
