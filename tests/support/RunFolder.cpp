#include "RunFolder.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace skelda::test {

RunFolder::RunFolder(Content content, const QColor& picture) : previous_(QDir::currentPath()) {
    valid_ = dir_.isValid() && QDir::setCurrent(dir_.path());
    if (valid_ && content != Nothing) valid_ = QDir().mkdir(QStringLiteral("log"));
    if (valid_ && content == LogAndImages)
        valid_ = QDir().mkdir(QStringLiteral("Images")) && SavePicture(QStringLiteral("Images/METEO2.BMP"), picture);
}

RunFolder::~RunFolder() { QDir::setCurrent(previous_); }

bool SavePicture(const QString& path, const QColor& colour, QSize size) {
    QImage image(size, QImage::Format_RGB888);
    image.fill(colour);
    return image.save(path, "BMP");
}

QString LogText() {
    QFile f(QStringLiteral("log/log.txt"));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(f.readAll());
}

int LogCount(const QString& line) { return int(LogText().count(line)); }

}  // namespace skelda::test
