// The poll cycle's fixture with a stand-in for the tray's form, whose caption the ingestion
// writes: the tray library isn't part of these tests.
#pragma once

#include "PollFixture.h"
#include "mainwindow/TrayStandIn.h"

namespace skelda::test {

class AcquisitionFixture : public PollFixture {
protected:
    void ProvideTray() override { TrayStandIn::ProvideTo(forms); }
    QString TrayCaption() { return forms.Get<TrayForm>().Caption(); }
};

}  // namespace skelda::test
