// The decoder given any text at all. It must never fail, never throw and never read outside the
// text; the sanitizers watch the reads, and an exception that escapes ends the run as a crash.
//
// The bytes become a text as the socket's bytes do, one character each (Latin-1), so that every
// character the decoder can meet in a reply can be reached.
#include "Bulletin.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const skelda::FixedClock clock(QDateTime(QDate(2004, 11, 2), QTime(10, 5)));
    const QString text = QString::fromLatin1(reinterpret_cast<const char*>(data), qsizetype(size));
    const skelda::Bulletin b = skelda::DecoderMetaf(text, clock);
    // The station is the first group, whole, so it can never be longer than the text.
    if (b.Ida.size() > qsizetype(size) && !text.isEmpty()) __builtin_trap();
    return 0;
}
