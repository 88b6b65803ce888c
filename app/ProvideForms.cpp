#include "ProvideForms.h"

#include "AeroportsConfig.h"
#include "ForecastForm.h"
#include "Form1.h"
#include "FrmIcone.h"
#include "StatistiqueMensuelle.h"

namespace skelda {

void ProvideForms(Forms& forms) {
    ProvideMainWindow(forms);
    ProvideTrayForms(forms);
    ProvideAirportForms(forms);
    ProvideMonthWindow(forms);
    ProvideForecastForms(forms);
}

}  // namespace skelda
