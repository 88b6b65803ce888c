// The printer seam: where a printed report gets its page. The program prints on the system's
// default printer; tests give a recording page or a PDF file instead.
#pragma once

#include "PageSurface.h"

#include <memory>

namespace skelda {

class Printer {
public:
    virtual ~Printer() = default;
    // A fresh page for one document, in the printer's default font. Nothing reaches the paper
    // until the page's EndDoc.
    virtual std::shared_ptr<PageSurface> NewPage() = 0;
};

// The system's default printer (PrinterSurface), a new page each time.
class SystemPrinter : public Printer {
public:
    std::shared_ptr<PageSurface> NewPage() override;
};

}  // namespace skelda
