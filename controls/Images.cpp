#include "Images.h"

#include "Failure.h"

namespace skelda {

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
    if (picture.width() > room.width() || picture.height() > room.height())
        setPixmap(picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else
        setPixmap(picture);
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
