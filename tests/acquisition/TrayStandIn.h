// The tray form as the acquisition tests see it: only a window whose caption the ingestion
// writes. The tray library isn't part of these tests, so this is the one FrmIcone of the program.
#pragma once

#include <QWidget>

#include "PollFixture.h"

namespace skelda {
class FrmIcone : public QWidget {};
}  // namespace skelda

namespace skelda::test {

class AcquisitionFixture : public PollFixture {
protected:
    void ProvideTray() override {
        forms.Provide<FrmIcone>([](Forms&) { return new FrmIcone; });
    }
    QString TrayCaption() { return forms.Widget<FrmIcone>().windowTitle(); }
};

}  // namespace skelda::test
