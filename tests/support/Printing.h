// How texts print when an expectation fails: as the text itself, in quotes, rather than as
// GoogleTest's dump of the bytes of a Qt object.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QByteArray& bytes, std::ostream* os) { *os << '"' << bytes.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* os) {
    *os << '{';
    for (const QString& text : texts) *os << '"' << text.toStdString() << "\" ";
    *os << '}';
}
