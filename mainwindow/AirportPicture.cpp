// The picture of the selected airport, shown beside the day chart after each drawing. Only the
// airport decides: one bitmap per station code under Images/, or the common picture.
#include "Form1.h"
#include "Forms.h"
#include "Images.h"
#include "Log.h"

namespace skelda {

namespace {

// The file names are relative: they are looked up from the current folder, unlike the database,
// which lies beside the program.
const QString ImagesFolder = QStringLiteral("Images/");

}  // namespace

void Form1::AfficherImage(const QString& Idx) {
    // Find the airport's row, with a database and a recordset of its own, not the form's.
    Database base = OpenDatabase(DatabasePath());
    Recordset aeroports = base.OpenRecordset(QStringLiteral("select * from aéroports  "), dbOpenSnapshot);
    aeroports.FindFirst(QStringLiteral("idx = ") + Idx);
    // The file is named after the airport's code. The search isn't looked at: with no match the
    // current row, the first, names the file. The code goes in as it stands in the table.
    const QString Fichier = ImagesFolder + aeroports.Fields(QStringLiteral("ida")).Concat() + QStringLiteral(".BMP");
    // Show the airport's picture, or the common one. A missing picture is an expected case: a log
    // line on every drawing, never a box. The names are found whatever the case of their letters,
    // as the pictures were named for a file system that ignores it ("lfpb" finds LFPB.BMP).
    if (FileExists(Fichier)) {
        Picture1->SetPicture(LoadPicture(Fichier));
    } else {
        EcrireLog(QStringLiteral("File Not Found: ") + Fichier, forms_.services().clock);
        Picture1->SetPicture(LoadPicture(ImagesFolder + QStringLiteral("METEO2.BMP")));
    }
    // Close the recordset and the database.
    aeroports.Close();
    base.Close();
}

}  // namespace skelda
