#include "Forecast.h"

#include "ForecastForm.h"
#include "Forms.h"
#include "Log.h"
#include "PageFetcher.h"
#include "Promo.h"

namespace skelda {

namespace {

const QString PasDePrevision = QStringLiteral("Unable to retrieve forecast!!!");

// The forecast window as the parser's output: the form is loaded at the first touch and its
// labels are only written, so a block that doesn't come keeps what the label held.
class FenetrePrevision : public AffichagePrevision {
public:
    explicit FenetrePrevision(Forms& forms) : forms_(forms) {}
    void Montrer() override { forms_.Widget<ForecastForm>().show(); }
    void Bloc(int Numero, const QString& Titre, const QString& Corps) override {
        forms_.Get<ForecastForm>().EcrireBloc(Numero, Titre, Corps);
    }

private:
    Forms& forms_;
};

// Fetches a page into the main window's hidden field and gives what the field holds.
QString Recevoir(Forms& forms, const QString& url) { return forms.Get<PageFetcher>().Recevoir(url); }

}  // namespace

QString AdressePage(const QString& host, quint16 port, const QString& path) {
    QString url = QStringLiteral("http://") + host;
    if (port != 80) url += u':' + QString::number(port);
    return url + path;
}

void ChargerPrevision(QString& Code, Forms& forms, const PasseDeBoucle& Passe) {
    const ServerAddress& portail = forms.services().forecastPortal;
    const QString page = Recevoir(
        forms, AdressePage(portail.host, portail.port, QStringLiteral("/forecast/") + Code + QStringLiteral(".html")));
    AfficherPrevision(page, Code, forms, Passe);
}

void AfficherPrevision(const QString& Page, const QString& Code, Forms& forms, const PasseDeBoucle& Passe) {
    FenetrePrevision fenetre(forms);
    if (!LirePrevision(Page, fenetre, Passe)) {
        forms.services().boxes.MsgBox(PasDePrevision, vbOKOnly, QString());
        EcrireLog(PasDePrevision + Code, forms.services().clock);
    }
}

void AfficherNouvelles(const QString& /*Inutile*/, Forms& forms) {
    if (forms.module1().NouvellesVues == Variant(QStringLiteral("vu"))) return;
    const ServerAddress& serveur = forms.services().newsServer;
    const QString page = Recevoir(forms, AdressePage(serveur.host, serveur.port, QStringLiteral("/Skelda/promo.html")));
    // The first touch of promo loads it, and its load writes the time of loading.
    forms.Get<Promo>().AfficherPage(page);
    forms.Widget<Promo>().show();
    // Set last: a fetch that failed above doesn't count as seen, and the next poll tries again.
    forms.module1().NouvellesVues = QStringLiteral("vu");
}

}  // namespace skelda
