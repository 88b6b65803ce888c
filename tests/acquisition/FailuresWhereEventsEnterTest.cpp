// A failure that no procedure handles, in a handler of the socket or of a timer, reaches the
// run-time error box from inside that handler: it never travels through Qt's dispatch back into
// the event loop.
#include "AcquisitionFixture.h"

#include <QFile>

using namespace skelda;
using namespace skelda::test;

namespace {

class FailuresWhereEventsEnter : public AcquisitionFixture {
protected:
    // Runs the event loop until the run-time error box has ended the program; if a failure
    // escaped into the loop, the wait itself would throw.
    bool WaitForTheEnd() {
        bool escaped = false;
        bool ended = false;
        try {
            ended = QTest::qWaitFor([&] { return !runTimeEnds.empty(); }, 5000);
        } catch (...) {
            escaped = true;
        }
        EXPECT_FALSE(escaped) << "a failure travelled through the event loop";
        return ended;
    }
};

TEST_F(FailuresWhereEventsEnter, ASocketEventThatFailsEndsInTheBox) {
    Form1& f = Form();
    while (Named<ListBox>(f, QStringLiteral("List1"))->ListCount() < 102)
        Named<ListBox>(f, QStringLiteral("List1"))->AddItem(QStringLiteral("more"));
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(101);
    // The connection is made by the socket, whose Connect event looks up line 101 of the station
    // codes, one beyond the table.
    f.Cycle().Connect();
    ASSERT_TRUE(WaitForTheEnd());
    EXPECT_EQ(runTimeEnds, std::vector<int>{SubscriptOutOfRange});
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0], QStringLiteral("Run-time error '9': Subscript out of range"));
}

TEST_F(FailuresWhereEventsEnter, ATimersTickThatFailsEndsInTheBox) {
    Form1& f = Form();
    ASSERT_TRUE(QFile::remove(db.Path()));
    // The next tick of T is the hourly refresh, on a database that is gone.
    f.Cycle().SecondesHeure = 3600;
    T(f).SetInterval(1);
    T(f).SetEnabled(true);
    ASSERT_TRUE(WaitForTheEnd());
    T(f).SetEnabled(false);
    EXPECT_EQ(runTimeEnds.front(), int(DaoFileNotFound));
    ASSERT_FALSE(boxes.shown.empty());
    EXPECT_TRUE(boxes.shown[0].startsWith(QStringLiteral("Run-time error '3024': Could not find file")));
}

}  // namespace
