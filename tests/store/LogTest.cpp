#include "Log.h"
#include "RunFolder.h"
#include "Variant.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace skelda;
using skelda::test::LogText;
using skelda::test::RunFolder;

namespace {

// Runs a test inside a fresh current directory, and goes back afterwards.
class InTemporaryDirectory : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir.IsValid()); }
    RunFolder dir{RunFolder::Nothing};
    FixedClock clock{QDateTime(QDate(2004, 11, 2), QTime(10, 0, 5))};
};

}  // namespace

TEST_F(InTemporaryDirectory, WithoutLogFolderTheEntryIsLostQuietly) {
    EXPECT_NO_THROW(EcrireLog(QStringLiteral("Skelda Starting"), clock));
    EXPECT_FALSE(QFile::exists(QStringLiteral("log/log.txt")));
    EXPECT_FALSE(QDir(QStringLiteral("log")).exists());  // no code creates the folder
}

TEST_F(InTemporaryDirectory, OneEntryIsDateBlankTimeBlankMessageCrLf) {
    QDir().mkdir(QStringLiteral("log"));
    EcrireLog(QStringLiteral("Skelda Starting"), clock);
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 10:00:05 Skelda Starting\r\n"));
}

TEST_F(InTemporaryDirectory, TwoEntriesOfOneSecondKeepTheirOrder) {
    QDir().mkdir(QStringLiteral("log"));
    EcrireLog(QStringLiteral("Weather Received from    Paris - Le Bourget"), clock);
    EcrireLog(QStringLiteral("New Metaf Recorded    Paris - Le Bourget"), clock);
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 10:00:05 Weather Received from    Paris - Le Bourget\r\n"
                                        "02/11/2004 10:00:05 New Metaf Recorded    Paris - Le Bourget\r\n"));
}

TEST_F(InTemporaryDirectory, AnEmptyMessageGivesTheStampAndOneBlank) {
    QDir().mkdir(QStringLiteral("log"));
    EcrireLog(QString(), clock);
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 10:00:05 \r\n"));
}

TEST_F(InTemporaryDirectory, AtMidnightTheStampIsTheDateAloneAsTheDefaultConversionGivesIt) {
    QDir().mkdir(QStringLiteral("log"));
    clock.Set(QDateTime(QDate(2004, 11, 2), QTime(0, 0, 0)));
    EcrireLog(QStringLiteral("Skelda Starting"), clock);
    // The same moment, converted by the program's own default rule, and the literal text.
    EXPECT_EQ(LogText(), Variant::FromDateTime(clock.Now()).ToText() + QStringLiteral(" Skelda Starting\r\n"));
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 Skelda Starting\r\n"));
}

TEST_F(InTemporaryDirectory, AFractionOfASecondAfterMidnightStillStampsTheDateAlone) {
    QDir().mkdir(QStringLiteral("log"));
    clock.Set(QDateTime(QDate(2004, 11, 2), QTime(0, 0, 0, 437)));
    EcrireLog(QStringLiteral("x"), clock);
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 x\r\n"));
}

TEST_F(InTemporaryDirectory, OneSecondAfterMidnightTheStampHasItsTime) {
    QDir().mkdir(QStringLiteral("log"));
    clock.Set(QDateTime(QDate(2004, 11, 2), QTime(0, 0, 1, 900)));
    EcrireLog(QStringLiteral("x"), clock);
    EXPECT_EQ(LogText(), QStringLiteral("02/11/2004 00:00:01 x\r\n"));
}

TEST_F(InTemporaryDirectory, TheFileOnlyGrows) {
    QDir().mkdir(QStringLiteral("log"));
    {
        QFile f(QStringLiteral("log/log.txt"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("old line\r\n");
    }
    EcrireLog(QStringLiteral("Nouvelle Aéroport enregistré LFXX"), clock);
    EXPECT_EQ(LogText(), QStringLiteral("old line\r\n02/11/2004 10:00:05 Nouvelle Aéroport enregistré LFXX\r\n"));
}

TEST_F(InTemporaryDirectory, ALockedFileLosesTheEntryQuietly) {
    QDir().mkdir(QStringLiteral("log"));
    QDir().mkdir(QStringLiteral("log/log.txt"));  // a folder in the file's place can't be opened
    EXPECT_NO_THROW(EcrireLog(QStringLiteral("lost"), clock));
    EXPECT_TRUE(QFileInfo(QStringLiteral("log/log.txt")).isDir());
}
