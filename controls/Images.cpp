#include "Images.h"

#include "Failure.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

namespace skelda {

namespace {

// The entry of Dossier that Nom names: itself if it exists as written, else the first entry, in
// name order, that differs from it only by the case of its letters; empty for none.
QString EntreeSansCasse(const QString& Dossier, const QString& Nom) {
    const QDir dossier(Dossier.isEmpty() ? QStringLiteral(".") : Dossier);
    if (dossier.exists(Nom)) return Nom;
    const QStringList entrees =
        dossier.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& entree : entrees)
        if (entree.compare(Nom, Qt::CaseInsensitive) == 0) return entree;
    return {};
}

}  // namespace

QString TrouverFichier(const QString& Chemin) {
    if (Chemin.isEmpty() || QFileInfo::exists(Chemin)) return Chemin;
    // Part by part from the root or the current folder, so that the folders' case is free too.
    const QStringList parties = Chemin.split(u'/');
    QString trouve = Chemin.startsWith(u'/') ? QStringLiteral("/") : QString();
    for (const QString& partie : parties) {
        if (partie.isEmpty()) continue;
        QString entree = partie;
        if (partie != u"." && partie != u"..") {
            entree = EntreeSansCasse(trouve, partie);
            if (entree.isEmpty()) return Chemin;
        }
        if (!trouve.isEmpty() && !trouve.endsWith(u'/')) trouve += u'/';
        trouve += entree;
    }
    return trouve;
}

bool FileExists(const QString& Chemin) { return QFileInfo(TrouverFichier(Chemin)).isFile(); }

QPixmap LoadPicture(const QString& Chemin) {
    const QString fichier = TrouverFichier(Chemin);
    if (!QFileInfo(fichier).isFile()) throw RuntimeError(FileNotFound);
    QImageReader reader(fichier);
    const QImage image = reader.read();
    if (image.isNull()) throw RuntimeError(InvalidPicture);
    return QPixmap::fromImage(image);
}

Image::Image(QWidget* parent) : QLabel(parent) { setAlignment(Qt::AlignCenter); }

void Image::SetPicture(const QPixmap& picture) {
    picture_ = picture;
    if (picture.isNull()) {
        clear();
        return;
    }
    // A picture larger than the control is shown whole, shrunk to fit with its proportions kept;
    // Picture() still gives it at its own size.
    const QSize room = size();
    if (shrinkToFit_ && (picture.width() > room.width() || picture.height() > room.height()))
        setPixmap(picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else
        setPixmap(picture);
}

PictureBox::PictureBox(QWidget* parent) : Image(parent) {
    // At its own size from the top left; the label's painting stops at its edges.
    shrinkToFit_ = false;
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void ImageList::Add(const QString& key, const QPixmap& picture) {
    if (images_.find(key) == images_.end()) order_.append(key);
    images_[key] = picture;
}

const QPixmap& ImageList::ListImages(const QString& key) const {
    const auto it = images_.find(key);
    if (it == images_.end()) throw RuntimeError(InvalidKey);
    return it->second;
}

}  // namespace skelda
