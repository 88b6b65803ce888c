// The picture files and the picture controls: names found whatever their case, and a picture box
// that shows its picture at its own size, cut at its edges.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include "Failure.h"
#include "GuiApplication.h"
#include "Images.h"

using namespace skelda;

namespace {

class Pictures : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(work.isValid());
        previous = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(work.path()));
        ASSERT_TRUE(QDir().mkdir(QStringLiteral("Images")));
    }
    void TearDown() override { QDir::setCurrent(previous); }

    // A picture of 300 by 200 pixels: red in its top left corner of 60 by 40, green elsewhere.
    static void Save(const QString& path) {
        QImage picture(300, 200, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QPainter(&picture).fillRect(0, 0, 60, 40, Qt::red);
        ASSERT_TRUE(picture.save(path, "BMP"));
    }

    static int Failure(const QString& path) {
        try {
            LoadPicture(path);
        } catch (const RuntimeError& e) {
            return e.Number();
        }
        return 0;
    }

    QTemporaryDir work;
    QString previous;
};

TEST_F(Pictures, ANameInLowerCaseFindsTheFileInCapitals) {
    Save(QStringLiteral("Images/LFPB.BMP"));
    EXPECT_TRUE(FileExists(QStringLiteral("Images/lfpb.BMP")));
    EXPECT_TRUE(FileExists(QStringLiteral("images/Lfpb.bmp")));
    EXPECT_EQ(TrouverFichier(QStringLiteral("images/lfpb.bmp")), QStringLiteral("Images/LFPB.BMP"));
    EXPECT_EQ(LoadPicture(QStringLiteral("Images/lfpb.BMP")).size(), QSize(300, 200));
}

TEST_F(Pictures, AnAbsoluteNameIsFoundWhateverItsCaseToo) {
    Save(QStringLiteral("Images/METEO2.BMP"));
    const QString absolu = QDir::current().absoluteFilePath(QStringLiteral("images/meteo2.bmp"));
    EXPECT_TRUE(FileExists(absolu));
    EXPECT_EQ(TrouverFichier(absolu), QDir::current().absoluteFilePath(QStringLiteral("Images/METEO2.BMP")));
}

TEST_F(Pictures, TheExactNameComesFirstAmongNamesThatDifferByCase) {
    Save(QStringLiteral("Images/lfpb.bmp"));
    Save(QStringLiteral("Images/LFPB.BMP"));
    EXPECT_EQ(TrouverFichier(QStringLiteral("Images/lfpb.bmp")), QStringLiteral("Images/lfpb.bmp"));
    EXPECT_EQ(TrouverFichier(QStringLiteral("Images/LFPB.BMP")), QStringLiteral("Images/LFPB.BMP"));
}

TEST_F(Pictures, AMissingFileIsFileNotFoundAndAFolderIsNoFile) {
    EXPECT_FALSE(FileExists(QStringLiteral("Images/EGLL.BMP")));
    EXPECT_EQ(Failure(QStringLiteral("Images/EGLL.BMP")), FileNotFound);
    EXPECT_FALSE(FileExists(QStringLiteral("images")));
    EXPECT_EQ(Failure(QStringLiteral("IMAGES")), FileNotFound);
    EXPECT_EQ(TrouverFichier(QStringLiteral("nothing/here.bmp")), QStringLiteral("nothing/here.bmp"));
}

TEST_F(Pictures, AFileThatIsntAPictureIsAnInvalidPicture) {
    QFile broken(QStringLiteral("Images/LFPB.BMP"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a picture");
    broken.close();
    EXPECT_EQ(Failure(QStringLiteral("images/lfpb.bmp")), InvalidPicture);
}

TEST_F(Pictures, APictureBoxShowsALargerPictureAtItsOwnSizeFromTheTopLeftCut) {
    Save(QStringLiteral("Images/LFPB.BMP"));
    PictureBox box;
    box.resize(100, 60);
    box.SetPicture(LoadPicture(QStringLiteral("Images/LFPB.BMP")));
    EXPECT_EQ(box.pixmap().size(), QSize(300, 200));  // not shrunk
    EXPECT_EQ(box.Picture().size(), QSize(300, 200));
    EXPECT_EQ(box.size(), QSize(100, 60));  // the box keeps its size
    const QImage shown = box.grab().toImage();
    ASSERT_EQ(shown.size(), QSize(100, 60));
    // The picture's red corner of 60 by 40 stands at the box's top left at full size; shrunk to
    // fit it would be a third of that, and centred it would lie outside the box.
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(55, 35), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(65, 45), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(99, 59), QColor(Qt::green));
}

TEST_F(Pictures, AnImageStillShrinksALargerPictureToFit) {
    Save(QStringLiteral("Images/LFPB.BMP"));
    Image image;
    image.resize(100, 60);
    image.SetPicture(LoadPicture(QStringLiteral("Images/LFPB.BMP")));
    EXPECT_EQ(image.Picture().size(), QSize(300, 200));
    EXPECT_LE(image.pixmap().width(), 100);
    EXPECT_LE(image.pixmap().height(), 60);
}

}  // namespace
