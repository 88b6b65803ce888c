// The folder a test runs the program in, and what the program leaves there: it writes its diary to
// log/log.txt of the current directory and reads the airports' pictures from Images/.
#pragma once

#include <QColor>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

namespace skelda::test {

class RunFolder {
public:
    // What the folder holds from the start: nothing, the empty log/ folder, or log/ and Images/
    // with the common airport picture METEO2.BMP.
    enum Content { Nothing, Log, LogAndImages };

    // Makes a temporary folder with Content (METEO2.BMP 150 x 100, filled with Picture) and makes
    // it the current directory; the one before comes back when the object goes.
    explicit RunFolder(Content content, const QColor& picture = Qt::blue);
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    // Whether the folder and all it should hold were made, and it is the current directory.
    bool IsValid() const { return valid_; }
    QString Path() const { return dir_.path(); }

private:
    QTemporaryDir dir_;
    QString previous_;
    bool valid_ = false;
};

// Saves a bitmap of that size filled with Colour at Path; false when it can't be written.
bool SavePicture(const QString& path, const QColor& colour, QSize size = QSize(150, 100));

// The diary in log/log.txt of the current directory, or an empty text when there is none.
QString LogText();
// How many times Line stands in the diary.
int LogCount(const QString& line);

}  // namespace skelda::test
