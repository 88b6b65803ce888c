#include "ProvideForms.h"

#include "Acquisition.h"
#include "AeroportsConfig.h"
#include "ForecastForm.h"
#include "Form1.h"
#include "FormMetaf.h"
#include "Forms.h"
#include "FrmIcone.h"
#include "StatistiqueMensuelle.h"
#include "ajoutareoports.h"

namespace skelda {

void ProvideForms(Forms& forms) {
    forms.Provide<Form1>(&LoadForm1WithPollCycle);
    forms.Provide<FrmIcone>(&FrmIcone::Load);
    forms.ProvideAs<TrayForm, FrmIcone>();
    forms.Provide<FormMetaf>([](Forms& f) { return new FormMetaf(f.services()); });
    forms.ProvideAs<PollingForm, Form1>();
    forms.Provide<AeroportsConfig>(&AeroportsConfig::Load);
    forms.Provide<ajoutareoports>(&ajoutareoports::Load);
    forms.Provide<StatistiqueMensuelle>(&StatistiqueMensuelle::Load);
    ProvideForecastForms(forms);
}

}  // namespace skelda
