#include "Variant.h"

#include "Convert.h"
#include "Regional.h"

#include <cmath>

namespace skelda {

namespace {
const QDate kEpoch(1899, 12, 30);
}

double ToSerial(const QDateTime& moment) {
    const double days = double(kEpoch.daysTo(moment.date()));
    const double fraction = moment.time().msecsSinceStartOfDay() / 86400000.0;
    return days + fraction;
}

namespace {

// The day and the time of day of a serial date. Kept apart from QDateTime, whose every
// construction asks the system for the local time zone: turning the days of ten years into text
// went through the time-zone file once a day.
void SplitSerial(double serial, QDate& date, QTime& time) {
    double days = std::floor(serial);
    double fraction = serial - days;
    qint64 ms = qint64(std::llround(fraction * 86400000.0));
    if (ms >= 86400000) {
        ms -= 86400000;
        days += 1;
    }
    date = kEpoch.addDays(qint64(days));
    time = QTime::fromMSecsSinceStartOfDay(int(ms));
}

}  // namespace

QDateTime FromSerialDate(double serial) {
    QDate date;
    QTime time;
    SplitSerial(serial, date, time);
    return QDateTime(date, time);
}

Variant Variant::Null() {
    Variant v;
    v.v_ = NullTag{};
    return v;
}

Variant Variant::FromSerial(double serial) {
    Variant v;
    v.v_ = DateTag{serial};
    return v;
}

Variant Variant::FromDate(QDate date) { return FromSerial(double(kEpoch.daysTo(date))); }
Variant Variant::FromTime(QTime time) { return FromSerial(time.msecsSinceStartOfDay() / 86400000.0); }
Variant Variant::FromDateTime(const QDateTime& moment) { return FromSerial(ToSerial(moment)); }

Variant::Kind Variant::kind() const { return static_cast<Kind>(v_.index()); }

bool Variant::IsNumeric() const {
    switch (kind()) {
        case Kind::Empty:
        case Kind::Boolean:
        case Kind::Integer:
        case Kind::Long:
        case Kind::Double:
            return true;
        case Kind::String:
            return skelda::IsNumeric(std::get<QString>(v_));
        default:
            return false;
    }
}

QString Variant::ToText() const {
    switch (kind()) {
        case Kind::Empty:
            return {};
        case Kind::Null:
            throw RuntimeError(InvalidUseOfNull);
        case Kind::Boolean:
            return std::get<bool>(v_) ? QStringLiteral("True") : QStringLiteral("False");
        case Kind::Integer:
            return QString::number(std::get<int16_t>(v_));
        case Kind::Long:
            return QString::number(std::get<int32_t>(v_));
        case Kind::Double:
            return NumberText(std::get<double>(v_));
        case Kind::Date: {
            // A date shows without its time at midnight, and a time of day 0 without its date.
            const double serial = std::get<DateTag>(v_).serial;
            // A whole day other than day 0, as each of the list of days is: its date alone.
            if (serial != 0 && serial == std::floor(serial)) return skelda::DateText(kEpoch.addDays(qint64(serial)));
            QDate date;
            QTime time;
            SplitSerial(serial, date, time);
            if (std::floor(serial) == 0) return skelda::TimeText(time);  // midnight too
            if (time == QTime(0, 0)) return skelda::DateText(date);
            return skelda::DateText(date) + u' ' + skelda::TimeText(time);
        }
        case Kind::String:
            return std::get<QString>(v_);
    }
    return {};
}

Fallible<double> Variant::DoubleOf() const {
    switch (kind()) {
        case Kind::Empty:
            return 0.0;
        case Kind::Null:
            return Fallible<double>::Failed(InvalidUseOfNull);
        case Kind::Boolean:
            return std::get<bool>(v_) ? -1.0 : 0.0;
        case Kind::Integer:
            return double(std::get<int16_t>(v_));
        case Kind::Long:
            return double(std::get<int32_t>(v_));
        case Kind::Double:
            return std::get<double>(v_);
        case Kind::Date:
            return std::get<DateTag>(v_).serial;
        case Kind::String:
            return CDblOf(std::get<QString>(v_));
    }
    return 0.0;
}

double Variant::ToDouble() const { return DoubleOf().Value(); }

Fallible<int16_t> Variant::Int16Of() const {
    if (kind() == Kind::Integer) return std::get<int16_t>(v_);
    if (kind() == Kind::String) return CIntOf(std::get<QString>(v_));
    const auto d = DoubleOf();
    if (!d.Ok()) return Fallible<int16_t>::Failed(d.Error());
    return CIntOf(d.Value());
}

int16_t Variant::ToInt16() const { return Int16Of().Value(); }

int32_t Variant::ToInt32() const {
    if (kind() == Kind::Long) return std::get<int32_t>(v_);
    if (kind() == Kind::String) return CLng(std::get<QString>(v_));
    return CLng(ToDouble());
}

bool Variant::ToBool() const {
    if (kind() == Kind::String) {
        const QString& s = std::get<QString>(v_);
        if (s.compare(u"True", Qt::CaseInsensitive) == 0) return true;
        if (s.compare(u"False", Qt::CaseInsensitive) == 0) return false;
    }
    return ToDouble() != 0;
}

QDateTime Variant::ToDateTime() const {
    switch (kind()) {
        case Kind::Null:
            throw RuntimeError(InvalidUseOfNull);
        case Kind::Date:
            return FromSerialDate(std::get<DateTag>(v_).serial);
        case Kind::String: {
            const QString& s = std::get<QString>(v_);
            const qsizetype blank = s.trimmed().indexOf(u' ');
            const QString trimmed = s.trimmed();
            if (blank > 0) {
                const auto d = ParseDate(QStringView(trimmed).first(blank));
                const auto t = ParseTime(QStringView(trimmed).sliced(blank + 1));
                if (d && t) return QDateTime(*d, *t);
            }
            if (const auto d = ParseDate(trimmed)) return QDateTime(*d, QTime(0, 0));
            if (const auto t = ParseTime(trimmed)) return QDateTime(kEpoch, *t);
            throw RuntimeError(TypeMismatch);
        }
        default:
            return FromSerialDate(ToDouble());
    }
}

double Variant::DateSerial() const {
    return kind() == Kind::Date ? std::get<DateTag>(v_).serial : ToSerial(ToDateTime());
}

QString Variant::Concat() const { return IsNull() ? QString() : ToText(); }

}  // namespace skelda
