// A page being printed: a drawing surface in twips (1440 to the inch) that knows the size of its
// paper and is sent to the printer, or dropped, as a whole.
#pragma once

#include "Surface.h"

namespace skelda {

class PageSurface : public Surface {
public:
    // The whole sheet, in twips.
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    // The part of the sheet that can be printed on, in twips; the scale's origin is its top left.
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    // Sends what was drawn since the last EndDoc or KillDoc to the printer as one document.
    // Drawing after it starts a new document.
    virtual void EndDoc() = 0;
    // Drops what was drawn since the last EndDoc or KillDoc: none of it reaches the paper.
    virtual void KillDoc() = 0;
};

}  // namespace skelda
