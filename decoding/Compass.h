// Words for the wind: the 16-point compass name of a direction and the Beaufort force of a speed.
// Pure functions; they know nothing of forms or of the database.
#pragma once

#include "Variant.h"

#include <QString>

#include <cstdint>

namespace skelda {

// Names the direction held in the text Degres on the 16-point compass: the long name ("North
// North East") when Court is false, the short code ("NNE") when it is true.
//
// An empty Degres is first set to "0", and that change stays in the caller's text. The sector is
// Degres / 22.5 rounded half to even, so that north covers -11 to 11 and 349 to 371 degrees; a
// direction outside the table (372 and above, -12 and below) gives an Empty variant. Throws
// RuntimeError TypeMismatch (13) when Degres holds no number: there is no handling of its own.
Variant NomDirection(QString& Degres, bool Court);

// The Beaufort force of a speed in knots, as the text "Force 0" to "Force 12". A negative speed
// (a variable wind) and any speed of 100 knots or more give "Force 0". Can't fail.
QString ForceBeaufort(int16_t Noeuds);

}  // namespace skelda
