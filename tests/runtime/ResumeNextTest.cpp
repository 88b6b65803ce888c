#include "Convert.h"
#include "ResumeNext.h"

#include <gtest/gtest.h>

using namespace skelda;

TEST(ResumeNext, AFailedStatementIsSkippedAndTheNextRuns) {
    ResumeNext step;
    int16_t a = 7, b = 0;
    step.Set(a, CIntOf(u"//"));
    step.Set(b, CIntOf(u"12"));
    EXPECT_EQ(a, 7);
    EXPECT_EQ(b, 12);
    EXPECT_EQ(step.Number(), TypeMismatch);
}

TEST(ResumeNext, ThrownFailuresAreCaughtAndKept) {
    ResumeNext step;
    bool after = false;
    step([] { throw RuntimeError(3022, QStringLiteral("duplicate")); });
    step([&] { after = true; });
    EXPECT_TRUE(after);
    EXPECT_EQ(step.Number(), 3022);
    EXPECT_EQ(step.Description(), QStringLiteral("duplicate"));
}

TEST(ResumeNext, TheLatestFailureReplacesTheEarlierAndSuccessClearsNothing) {
    ResumeNext step;
    step([] { return CIntOf(u"x"); });
    step([] { return CIntOf(40000.0); });
    step([] { return CIntOf(u"5"); });
    EXPECT_EQ(step.Number(), Overflow);
    EXPECT_EQ(step.Description(), QStringLiteral("Overflow"));
    step.Clear();
    EXPECT_EQ(step.Number(), 0);
    EXPECT_EQ(step.Description(), QString());
}

TEST(ResumeNext, StatementsMayReturnAnErrorNumber) {
    ResumeNext step;
    step([] { return 0; });
    EXPECT_EQ(step.Number(), 0);
    step([] { return 9; });
    EXPECT_EQ(step.Number(), 9);
    EXPECT_EQ(step.Description(), QStringLiteral("Subscript out of range"));
}
