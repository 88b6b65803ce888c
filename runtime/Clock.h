// The clock seam: what time it is for Skelda. The decoder takes the month and year from it, the
// poll timer its clock text, the log its stamp. Tests set it; the program uses the system clock.
#pragma once

#include <QDateTime>
#include <QString>

namespace skelda {

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
    // The current time as the system writes it (see Regional.h), such as 15:07:09. A test clock
    // may give a 12-hour text such as 3:07:09 PM, which the poll timer also understands.
    virtual QString TimeText() const;
};

class SystemClock : public Clock {
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

// The present moment of Clock as the program's one default conversion of a date value writes it:
// 02/11/2004 15:07:09, or the date alone at exactly midnight, 02/11/2004. The system's clock
// counts whole seconds, so a fraction is dropped first: 00:00:00.4 is midnight too. The log's
// stamp and the news window's date are written so.
QString NowText(const Clock& clock);

// A clock that stands still until it is told otherwise.
class FixedClock : public Clock {
public:
    explicit FixedClock(QDateTime now) : now_(std::move(now)) {}
    QDateTime Now() const override { return now_; }
    QString TimeText() const override { return timeText_.isEmpty() ? Clock::TimeText() : timeText_; }
    void Set(QDateTime now) { now_ = std::move(now); }
    void SetTimeText(QString text) { timeText_ = std::move(text); }  // empty: from Now()

private:
    QDateTime now_;
    QString timeText_;
};

}  // namespace skelda
