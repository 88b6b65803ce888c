#include "Observation.h"

namespace skelda {

void AjouterReleve(Recordset& Jeu, ResumeNext& Step, const QString& ColonneLieu, const std::function<Variant()>& Lieu,
                   const Bulletin& Releve, const QString& Metaf) {
    Step([&] { Jeu.AddNew(); });
    Step([&] { Jeu.SetField(ColonneLieu, Lieu()); });
    Step([&] { Jeu.SetField(QStringLiteral("daterelevé"), Releve.DateReleve); });
    Step([&] { Jeu.SetField(QStringLiteral("heurerelevé"), Releve.HeureReleve); });
    Step([&] { Jeu.SetField(QStringLiteral("forcenoeuds"), Releve.ForceNoeuds); });
    Step([&] { Jeu.SetField(QStringLiteral("orientationdegré"), Releve.OrientationDegre); });
    Step([&] { Jeu.SetField(QStringLiteral("forcerafale"), Releve.ForceRafale); });
    Step([&] { Jeu.SetField(QStringLiteral("zefirvariable"), Releve.ZefirVariable); });
    Step([&] { Jeu.SetField(QStringLiteral("secteur1"), Releve.Secteur1); });
    Step([&] { Jeu.SetField(QStringLiteral("secteur2"), Releve.Secteur2); });
    Step([&] { Jeu.SetField(QStringLiteral("visibilité"), Releve.Visibilite); });
    Step([&] { Jeu.SetField(QStringLiteral("temps"), Releve.Temps); });
    Step([&] { Jeu.SetField(QStringLiteral("nuage"), Releve.Nuage); });
    Step([&] { Jeu.SetField(QStringLiteral("température"), Releve.Temperature); });
    Step([&] { Jeu.SetField(QStringLiteral("pression"), Releve.Pression); });
    Step([&] { Jeu.SetField(QStringLiteral("METAF"), Metaf); });
    Step([&] { Jeu.Update(); });
}

}  // namespace skelda
