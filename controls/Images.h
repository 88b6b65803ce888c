// The picture controls: an image that shows one picture, a picture box, a keyed list of small
// pictures, and the reading of picture files.
#pragma once

#include <QLabel>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <map>

namespace skelda {

// The file that Chemin names, found as Skelda's file names are meant: without regard to the case
// of the letters of each part of the path ("images/lfpb.bmp" finds "Images/LFPB.BMP"). A part that
// matches exactly is taken first; among parts that differ only by case, the first in name order.
// A path that names nothing comes back as it was given. Relative paths are taken from the current
// folder.
QString TrouverFichier(const QString& Chemin);

// Whether Chemin names a file (not a folder), whatever the case of its letters.
bool FileExists(const QString& Chemin);

// Reads the picture file Chemin, found whatever the case of its letters: a missing file is "File
// not found" (53), one that isn't a picture "Invalid picture" (481).
QPixmap LoadPicture(const QString& Chemin);

// An image control: shows a picture, or nothing. A picture larger than the control is shrunk to
// fit, its proportions kept.
class Image : public QLabel {
    Q_OBJECT
public:
    explicit Image(QWidget* parent = nullptr);
    void SetPicture(const QPixmap& picture);  // an empty pixmap clears it
    const QPixmap& Picture() const { return picture_; }
    QString PictureKey;  // the key of the picture shown, "" for none (for tests and the readout)

protected:
    bool shrinkToFit_ = true;

private:
    QPixmap picture_;
};

// A picture box: shows its picture at the picture's own size from the box's top left corner;
// what lies beyond the box's edges is cut off, never scaled.
class PictureBox : public Image {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);
};

// A keyed list of small pictures.
class ImageList {
public:
    void Add(const QString& key, const QPixmap& picture);
    const QPixmap& ListImages(const QString& key) const;  // "Invalid key" (35603) for an unknown key
    QStringList Keys() const { return order_; }

private:
    std::map<QString, QPixmap> images_;
    QStringList order_;
};

}  // namespace skelda
