// The start-up picture shown alone while an earlier database is brought up to date: it is the
// start form's start-up screen, caption, place and pixels, and it stands once ShowNow returns.
#include <QLabel>
#include <QWindow>

#include "StartUpPicture.h"
#include "TrayFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class StartUpPictureTest : public TrayFixture {};

TEST_F(StartUpPictureTest, IsTheStartFormsStartUpScreen) {
    FrmIcone& tray = StartForm();
    StartUpPicture picture;
    EXPECT_EQ(picture.windowTitle(), QStringLiteral("SKELDA - le zefir en temps réel"));
    EXPECT_EQ(picture.windowTitle(), tray.windowTitle());
    EXPECT_EQ(picture.size(), QSize(255, 427));  // 3825 by 6405 twips
    EXPECT_EQ(picture.geometry(), tray.geometry());
    const auto* box = picture.findChild<QLabel*>(QStringLiteral("Picture1"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->geometry(), Named<QLabel>(tray, QStringLiteral("Picture1"))->geometry());
    EXPECT_EQ(box->pixmap().size(), QSize(324, 537));
}

TEST_F(StartUpPictureTest, ShowsTheSamePixelsAsTheStartForm) {
    FrmIcone& tray = StartForm();
    StartUpPicture picture;
    const QImage alone = picture.grab().toImage();
    const QImage form = tray.grab().toImage();
    ASSERT_EQ(alone.size(), form.size());
    EXPECT_EQ(alone, form);
}

TEST_F(StartUpPictureTest, StandsOnTheScreenOnceShowNowReturns) {
    StartUpPicture picture;
    picture.ShowNow();
    EXPECT_TRUE(picture.isVisible());
    ASSERT_NE(picture.windowHandle(), nullptr);
    EXPECT_TRUE(picture.windowHandle()->isExposed());
    picture.close();
}

}  // namespace
