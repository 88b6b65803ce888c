// The airport's picture beside the chart: its own bitmap under Images/ of the current folder, or
// the common one with a log line.
#include "MainWindowFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class AirportPicture : public MainWindow {
protected:
    QColor Shown(Form1& form) const {
        return Named<PictureBox>(form, QStringLiteral("Picture1"))->Picture().toImage().pixelColor(10, 10);
    }
    int Failure(Form1& form, const QString& idx) {
        try {
            form.AfficherImage(idx);
        } catch (const RuntimeError& e) {
            return e.Number();
        }
        return 0;
    }
};

const QString NotFound = QStringLiteral("File Not Found: Images/LFPB.BMP");

}  // namespace

TEST_F(AirportPicture, TheAirportsOwnBitmapIsShownAndTheLogStaysSilent) {
    SaveBitmap(QStringLiteral("Images/LFPB.BMP"), Qt::green);
    Form1& form = Form();
    EXPECT_EQ(Shown(form), QColor(Qt::green));
    EXPECT_EQ(LogText().count(QStringLiteral("File Not Found")), 0);
}

TEST_F(AirportPicture, AMissingBitmapIsLoggedOnEveryDrawingAndTheCommonPictureShown) {
    Form1& form = Form();
    EXPECT_EQ(Shown(form), QColor(Qt::blue));
    EXPECT_EQ(LogCount(NotFound), 1);
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("20/11/2004 15:07:09 File Not Found: Images/LFPB.BMP\r\n")));
    form.TracerCourbe();
    form.TracerCourbe();
    EXPECT_EQ(LogCount(NotFound), 3);
}

TEST_F(AirportPicture, TheCodeGoesIntoTheNameAsItStandsInTheTable) {
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"IDA\" = 'lfpb' WHERE \"idx\" = 1")));
    Form1& form = Form();
    EXPECT_EQ(LogCount(QStringLiteral("File Not Found: Images/lfpb.BMP")), 1);
    EXPECT_EQ(Shown(form), QColor(Qt::blue));
}

TEST_F(AirportPicture, ACodeInLowerCaseFindsItsBitmapNamedInCapitals) {
    SaveBitmap(QStringLiteral("Images/LFPB.BMP"), Qt::green);
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"IDA\" = 'lfpb' WHERE \"idx\" = 1")));
    Form1& form = Form();
    EXPECT_EQ(Shown(form), QColor(Qt::green));
    EXPECT_EQ(LogText().count(QStringLiteral("File Not Found")), 0);
}

TEST_F(AirportPicture, TheCommonPictureIsFoundWhateverTheCaseOfItsName) {
    ASSERT_TRUE(QFile::rename(QStringLiteral("Images/METEO2.BMP"), QStringLiteral("Images/meteo2.bmp")));
    Form1& form = Form();
    EXPECT_EQ(Shown(form), QColor(Qt::blue));
    EXPECT_EQ(LogCount(NotFound), 1);
}

TEST_F(AirportPicture, AnUnknownNumberTakesTheFirstRowsPicture) {
    SaveBitmap(QStringLiteral("Images/LFPB.BMP"), Qt::green);
    SaveBitmap(QStringLiteral("Images/EGLL.BMP"), Qt::red);
    Form1& form = Form();
    form.AfficherImage(QStringLiteral("2"));
    EXPECT_EQ(Shown(form), QColor(Qt::red));
    form.AfficherImage(QStringLiteral("99"));
    EXPECT_EQ(Shown(form), QColor(Qt::green));  // idx 1 comes first
}

TEST_F(AirportPicture, PicturesAreLookedForUnderTheCurrentFolderNotBesideTheDatabase) {
    QDir(db.Folder()).mkdir(QStringLiteral("Images"));
    SaveBitmap(db.Folder() + QStringLiteral("/Images/LFPB.BMP"), Qt::green);
    Form1& form = Form();
    EXPECT_EQ(LogCount(NotFound), 1);
    EXPECT_EQ(Shown(form), QColor(Qt::blue));
}

TEST_F(AirportPicture, AMissingCommonPictureIsFileNotFound) {
    Form1& form = Form();
    ASSERT_TRUE(QFile::remove(QStringLiteral("Images/METEO2.BMP")));
    EXPECT_EQ(Failure(form, QStringLiteral("1")), FileNotFound);
    EXPECT_EQ(LogCount(NotFound), 2);  // the line comes before the failure
}

TEST_F(AirportPicture, AnUnreadableBitmapIsAnInvalidPicture) {
    Form1& form = Form();
    QFile broken(QStringLiteral("Images/LFPB.BMP"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a picture");
    broken.close();
    EXPECT_EQ(Failure(form, QStringLiteral("1")), 481);
}

TEST_F(AirportPicture, AFailingPictureStopsTheChartsCaller) {
    Form1& form = Form();
    ASSERT_TRUE(QFile::remove(QStringLiteral("Images/METEO2.BMP")));
    EXPECT_THROW(form.TracerCourbe(), RuntimeError);
}

TEST_F(AirportPicture, ALargerPictureIsShownAtItsOwnSizeFromTheTopLeftAndCut) {
    SaveBitmap(QStringLiteral("Images/LFPB.BMP"), Qt::green, QSize(300, 200));
    Form1& form = Form();
    // The box is 1755 by 1125 twips, 117 by 75 pixels: the picture isn't shrunk to it.
    ASSERT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->size(), QSize(117, 75));
    EXPECT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->Picture().size(), QSize(300, 200));
    EXPECT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->pixmap().size(), QSize(300, 200));
    EXPECT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->alignment(), Qt::AlignLeft | Qt::AlignTop);
    EXPECT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->size(), QSize(117, 75));
}
