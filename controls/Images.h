// The picture controls: an image that shows one picture, and a keyed list of small pictures.
#pragma once

#include <QLabel>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <map>

namespace skelda {

// An image control: shows a picture, or nothing.
class Image : public QLabel {
    Q_OBJECT
public:
    explicit Image(QWidget* parent = nullptr);
    void SetPicture(const QPixmap& picture);  // an empty pixmap clears it
    const QPixmap& Picture() const { return picture_; }
    QString PictureKey;  // the key of the picture shown, "" for none (for tests and the readout)

private:
    QPixmap picture_;
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
