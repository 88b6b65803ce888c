#include "DaoSql.h"

#include <QDate>
#include <QStringList>
#include <QTime>
#include <algorithm>
#include <optional>
#include <vector>

#include "Dao.h"
#include "DaoColumns.h"
#include "Regional.h"

namespace skelda::dao {

namespace {

enum class TokenKind { Space, Word, Number, Bracketed, SingleQuoted, DoubleQuoted, DateLiteral, Symbol };

struct Token {
    TokenKind kind;
    QStringView text;  // with its delimiters
    QStringView Inner() const { return text.sliced(1, text.size() - 2); }
    bool Is(char16_t symbol) const { return kind == TokenKind::Symbol && text.front() == symbol; }
    bool IsWord(QStringView word) const {
        return kind == TokenKind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

using Tokens = std::vector<Token>;

[[noreturn]] void SyntaxError(QStringView sql) {
    throw RuntimeError(DaoSyntaxInQuery, QStringLiteral("Syntax error in query expression '%1'.").arg(sql.toString()));
}

bool IsNameCharacter(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

// The end of a literal opened at Start and closed by the same character, where the character
// written twice stands for itself; -1 when it isn't closed.
qsizetype EndOfQuoted(QStringView sql, qsizetype start) {
    const QChar quote = sql[start];
    for (qsizetype i = start + 1; i < sql.size(); ++i) {
        if (sql[i] != quote) continue;
        if (i + 1 < sql.size() && sql[i + 1] == quote) {
            ++i;
            continue;
        }
        return i + 1;
    }
    return -1;
}

qsizetype EndOfClosed(QStringView sql, qsizetype start, QChar close) {
    const qsizetype at = sql.indexOf(close, start + 1);
    return at < 0 ? -1 : at + 1;
}

qsizetype EndOfRun(QStringView sql, qsizetype start, bool (*fits)(QChar)) {
    qsizetype i = start;
    while (i < sql.size() && fits(sql[i])) ++i;
    return i;
}

Token NextToken(QStringView sql, qsizetype at) {
    const QChar c = sql[at];
    qsizetype end = at + 1;
    TokenKind kind = TokenKind::Symbol;
    if (c.isSpace()) {
        kind = TokenKind::Space;
        end = EndOfRun(sql, at, [](QChar x) { return x.isSpace(); });
    } else if (c == u'[') {
        kind = TokenKind::Bracketed;
        end = EndOfClosed(sql, at, u']');
    } else if (c == u'#') {
        kind = TokenKind::DateLiteral;
        end = EndOfClosed(sql, at, u'#');
    } else if (c == u'\'' || c == u'"') {
        kind = c == u'\'' ? TokenKind::SingleQuoted : TokenKind::DoubleQuoted;
        end = EndOfQuoted(sql, at);
    } else if (c.isDigit()) {
        kind = TokenKind::Number;
        end = EndOfRun(sql, at, [](QChar x) { return x.isDigit() || x == u'.'; });
    } else if (IsNameCharacter(c)) {
        kind = TokenKind::Word;
        end = EndOfRun(sql, at, IsNameCharacter);
    }
    if (end < 0) SyntaxError(sql);
    return {kind, sql.sliced(at, end - at)};
}

Tokens Tokenize(QStringView sql) {
    Tokens tokens;
    for (qsizetype at = 0; at < sql.size();) {
        tokens.push_back(NextToken(sql, at));
        at += tokens.back().text.size();
    }
    return tokens;
}

// The neighbour of a token, blanks skipped, or nullptr.
const Token* Neighbour(const Tokens& tokens, size_t at, int step) {
    for (qsizetype i = qsizetype(at) + step; i >= 0 && i < qsizetype(tokens.size()); i += step)
        if (tokens[size_t(i)].kind != TokenKind::Space) return &tokens[size_t(i)];
    return nullptr;
}

// The index of the parenthesis that closes the one at Open, or 0 when none does.
size_t ClosingParenthesis(const Tokens& tokens, size_t open) {
    int depth = 0;
    for (size_t i = open; i < tokens.size(); ++i) {
        if (tokens[i].Is(u'(')) ++depth;
        if (tokens[i].Is(u')') && --depth == 0) return i;
    }
    return 0;
}

QString QuotedText(const QString& text) { return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\''; }

// A date written month first (m/d/yy, m/d/yyyy) or as yyyy-mm-dd, as the engine reads #...#.
std::optional<QDate> MonthFirstDate(QStringView text) {
    const QStringList parts = text.toString().split(text.contains(u'/') ? u'/' : u'-');
    if (parts.size() != 3) return std::nullopt;
    bool ok[3] = {};
    int a = parts[0].toInt(&ok[0]), b = parts[1].toInt(&ok[1]), c = parts[2].toInt(&ok[2]);
    if (!ok[0] || !ok[1] || !ok[2]) return std::nullopt;
    if (parts[0].size() == 4) return QDate(a, b, c);
    // The engine's window for two-digit years: 00 to 29 are 2000 to 2029, 30 to 99 the 1900s.
    if (parts[2].size() <= 2) c += c < 30 ? 2000 : 1900;
    const QDate date(c, a, b);
    if (!date.isValid()) return std::nullopt;
    return date;
}

// The stored form of a #date#, #time# or #date time# literal.
QString DateLiteral(QStringView literal, QStringView sql) {
    const QStringView inner = literal.sliced(1, literal.size() - 2).trimmed();
    const qsizetype blank = inner.indexOf(u' ');
    const QStringView dayPart = blank < 0 ? inner : inner.first(blank);
    std::optional<QDate> day = MonthFirstDate(dayPart);
    std::optional<QTime> time;
    if (day && blank >= 0) {
        time = ParseTime(inner.sliced(blank + 1));
        if (!time) SyntaxError(sql);
    } else if (!day) {
        time = ParseTime(inner);
        if (!time) SyntaxError(sql);
    }
    const double serial =
        (day ? QDate(1899, 12, 30).daysTo(*day) : 0) + (time ? time->msecsSinceStartOfDay() / 86400000.0 : 0);
    const ColumnKind kind = !time ? ColumnKind::Date : (!day ? ColumnKind::Time : ColumnKind::DateTime);
    return QuotedText(StoredDateText(serial, kind));
}

class Translator {
public:
    Translator(QStringView sql, Tokens tokens, std::function<bool(QStringView)> isTextColumn = {})
        : sql_(sql), tokens_(std::move(tokens)), isTextColumn_(std::move(isTextColumn)) {
        if (isTextColumn_) FindTextSortTerms();
    }

    QString Range(size_t from, size_t to) const {
        QString out;
        for (size_t i = from; i < to; ++i) i = Append(out, i);
        return out;
    }

private:
    // Appends the translation of token At (and of what belongs to it); gives the last token used.
    size_t Append(QString& out, size_t at) const {
        const Token& token = tokens_[at];
        switch (token.kind) {
            case TokenKind::Bracketed:
                out += QuotedIdentifier(token.Inner());
                break;
            case TokenKind::DoubleQuoted:
                // The engine takes "..." as a text, where SQLite would take it for a name.
                out += QuotedText(token.Inner().toString().replace(QStringLiteral("\"\""), QStringLiteral("\"")));
                break;
            case TokenKind::DateLiteral:
                out += DateLiteral(token.text, sql_);
                break;
            case TokenKind::Word:
                at = AppendWord(out, at);
                break;
            default:
                out += token.text;
        }
        if (std::find(textSortTerms_.begin(), textSortTerms_.end(), at) != textSortTerms_.end())
            out += QStringLiteral(" COLLATE ") + QLatin1StringView(kFrenchCollation);
        return at;
    }

    // The ORDER BY terms of the outer query that are one text column, by the token that ends
    // each. A term is a name, or a table and a name joined by a full stop, followed by ASC, DESC,
    // a comma or the end of the clause.
    void FindTextSortTerms() {
        int depth = 0;
        bool inOrderBy = false;
        for (size_t i = 0; i < tokens_.size(); ++i) {
            const Token& token = tokens_[i];
            if (token.Is(u'(')) ++depth;
            if (token.Is(u')')) --depth;
            if (depth != 0 || token.kind == TokenKind::Space) continue;
            if (token.IsWord(u"order")) {
                const Token* next = Neighbour(tokens_, i, +1);
                inOrderBy = next && next->IsWord(u"by");
                continue;
            }
            if (token.IsWord(u"limit") || token.Is(u';')) inOrderBy = false;
            if (!inOrderBy || !IsName(token)) continue;
            const Token* before = Neighbour(tokens_, i, -1);
            const Token* after = Neighbour(tokens_, i, +1);
            const bool termStarts = before && (before->IsWord(u"by") || before->Is(u',') || before->Is(u'.'));
            const bool termEnds = !after || after->Is(u',') || after->Is(u';') || after->IsWord(u"asc") ||
                                  after->IsWord(u"desc") || after->IsWord(u"limit");
            const QStringView name = token.kind == TokenKind::Bracketed ? token.Inner() : token.text;
            if (termStarts && termEnds && isTextColumn_(name)) textSortTerms_.push_back(i);
        }
    }

    static bool IsName(const Token& token) {
        return token.kind == TokenKind::Word || token.kind == TokenKind::Bracketed;
    }

    size_t AppendWord(QString& out, size_t at) const {
        const Token& token = tokens_[at];
        const Token* before = Neighbour(tokens_, at, -1);
        const Token* after = Neighbour(tokens_, at, +1);
        const bool partOfName = (before && before->Is(u'.')) || (after && (after->Is(u'.') || after->Is(u'(')));
        if (!partOfName && (token.IsWord(u"true") || token.IsWord(u"false"))) {
            out += token.IsWord(u"true") ? u'1' : u'0';  // how booleans are stored
            return at;
        }
        if (token.IsWord(u"Format") && after && after->Is(u'(')) return AppendFormat(out, at);
        out += token.text;
        return at;
    }

    // Format(time, 'Short Time') becomes the hours and minutes of the stored time, on the 24-hour
    // clock with leading zeros, so that it sorts in time order. Other formats are left to fail.
    size_t AppendFormat(QString& out, size_t at) const {
        size_t open = at + 1;
        while (!tokens_[open].Is(u'(')) ++open;
        const size_t close = ClosingParenthesis(tokens_, open);
        const size_t comma = TopLevelComma(open, close);
        if (close == 0 || comma == 0 || !IsShortTime(comma + 1, close)) {
            out += tokens_[at].text;
            return at;
        }
        out += QStringLiteral("strftime('%H:%M', ") + Range(open + 1, comma) + u')';
        return close;
    }

    size_t TopLevelComma(size_t open, size_t close) const {
        int depth = 0;
        for (size_t i = open + 1; i < close; ++i) {
            if (tokens_[i].Is(u'(')) ++depth;
            if (tokens_[i].Is(u')')) --depth;
            if (depth == 0 && tokens_[i].Is(u',')) return i;
        }
        return 0;
    }

    bool IsShortTime(size_t from, size_t to) const {
        int texts = 0;
        bool shortTime = false;
        for (size_t i = from; i < to; ++i) {
            const Token& token = tokens_[i];
            if (token.kind == TokenKind::Space) continue;
            ++texts;
            shortTime = (token.kind == TokenKind::SingleQuoted || token.kind == TokenKind::DoubleQuoted) &&
                        token.Inner().compare(u"Short Time", Qt::CaseInsensitive) == 0;
        }
        return texts == 1 && shortTime;
    }

    QStringView sql_;
    Tokens tokens_;
    std::function<bool(QStringView)> isTextColumn_;
    std::vector<size_t> textSortTerms_;
};

}  // namespace

QString QuotedIdentifier(QStringView name) {
    return u'"' + name.toString().replace(u'"', QStringLiteral("\"\"")) + u'"';
}

bool IsSqlText(const QString& source) {
    const QStringView text = QStringView(source).trimmed();
    for (const char16_t* word : {u"select", u"with", u"transform", u"parameters"}) {
        const QStringView w(word);
        if (text.startsWith(w, Qt::CaseInsensitive) && (text.size() == w.size() || !IsNameCharacter(text[w.size()])))
            return true;
    }
    return false;
}

QString Translate(const QString& sql, const std::function<bool(QStringView)>& isTextColumn) {
    Tokens tokens = Tokenize(sql);
    const size_t count = tokens.size();
    return Translator(sql, std::move(tokens), isTextColumn).Range(0, count);
}

namespace {

// Reads "[table.]column" at At of tokens without blanks; gives the column and moves At past it.
std::optional<QString> ColumnAt(const Tokens& tokens, size_t& at, QString* qualifier) {
    const auto name = [&](size_t i) -> std::optional<QString> {
        if (i >= tokens.size()) return std::nullopt;
        const Token& t = tokens[i];
        if (t.kind == TokenKind::Bracketed) return t.Inner().toString();
        if (t.kind == TokenKind::Word) return t.text.toString();
        return std::nullopt;
    };
    std::optional<QString> first = name(at);
    if (!first) return std::nullopt;
    if (at + 2 < tokens.size() && tokens[at + 1].Is(u'.')) {
        std::optional<QString> second = name(at + 2);
        if (!second) return std::nullopt;
        if (qualifier) *qualifier = *first;
        at += 3;
        return second;
    }
    if (qualifier) qualifier->clear();
    at += 1;
    return first;
}

bool SameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

}  // namespace

std::optional<DistinctValues> DistinctValuesOf(const QString& sql) {
    Tokens tokens;
    for (const Token& t : Tokenize(sql))
        if (t.kind != TokenKind::Space) tokens.push_back(t);
    size_t at = 0;
    const auto word = [&](QStringView w) { return at < tokens.size() && tokens[at++].IsWord(w); };
    DistinctValues query;
    QString qualifier, table;
    if (!word(u"select")) return std::nullopt;
    const std::optional<QString> selected = ColumnAt(tokens, at, &qualifier);
    if (!selected || !word(u"from")) return std::nullopt;
    QString none;
    const std::optional<QString> from = ColumnAt(tokens, at, &none);
    if (!from || !none.isEmpty()) return std::nullopt;
    const auto fits = [&](const std::optional<QString>& column, const QString& of) {
        return column && SameName(*column, *selected) && (of.isEmpty() || SameName(of, *from));
    };
    if (!fits(selected, qualifier)) return std::nullopt;
    for (QStringView clause : {u"group", u"order"}) {
        if (!word(clause) || !word(u"by")) return std::nullopt;
        const std::optional<QString> column = ColumnAt(tokens, at, &qualifier);
        if (!fits(column, qualifier)) return std::nullopt;
    }
    if (at < tokens.size() && tokens[at].IsWord(u"asc")) ++at;
    if (at < tokens.size() && tokens[at].Is(u';')) ++at;
    if (at != tokens.size()) return std::nullopt;
    return DistinctValues{*from, *selected, *selected};
}

QString DistinctValuesTable(const QString& table, const QString& column) { return table + u'.' + column; }

QString DistinctValuesFromTable(const DistinctValues& query, const QString& valuesTable) {
    // The table is its own index, in the order of the values: read in that order, it needs no
    // sort. A blob sorts after every text and number, so the Null day's x'' comes last.
    return QStringLiteral("SELECT \"valeur\" AS %2 FROM %1 ORDER BY \"valeur\"")
        .arg(QuotedIdentifier(valuesTable), QuotedIdentifier(query.name));
}

QString DistinctValuesByJumps(const DistinctValues& query) {
    const QString t = QuotedIdentifier(query.table);
    const QString c = QuotedIdentifier(query.column);
    // Each step of the recursion is one search of the index for the least value above the last;
    // min() over an indexed column with that bound reads one index entry.
    return QStringLiteral(
               "WITH RECURSIVE valeurs(v) AS ("
               "SELECT min(%2) FROM %1 "
               "UNION ALL SELECT (SELECT min(%2) FROM %1 WHERE %2 > valeurs.v) FROM valeurs WHERE valeurs.v IS NOT "
               "NULL) "
               "SELECT NULL AS %3 WHERE EXISTS (SELECT 1 FROM %1 WHERE %2 IS NULL) "
               "UNION ALL SELECT v FROM valeurs WHERE v IS NOT NULL")
        .arg(t, c, QuotedIdentifier(query.name));
}

QString SingleTableOf(const QString& sql) {
    Tokens tokens;
    for (const Token& t : Tokenize(sql))
        if (t.kind != TokenKind::Space) tokens.push_back(t);
    if (tokens.empty() || !tokens[0].IsWord(u"select")) return {};
    int depth = 0;
    size_t from = 0;
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].Is(u'(')) ++depth;
        if (tokens[i].Is(u')')) --depth;
        if (depth != 0) continue;
        for (const char16_t* word :
             {u"distinct", u"group", u"having", u"union", u"join", u"intersect", u"except", u"top"})
            if (tokens[i].IsWord(word)) return {};
        if (from == 0 && tokens[i].IsWord(u"from")) from = i;
    }
    if (from == 0 || from + 1 >= tokens.size()) return {};
    const Token& table = tokens[from + 1];
    if (table.kind != TokenKind::Word && table.kind != TokenKind::Bracketed) return {};
    if (from + 2 < tokens.size()) {
        const Token& next = tokens[from + 2];
        if (!next.IsWord(u"where") && !next.IsWord(u"order") && !next.Is(u';')) return {};
    }
    return table.kind == TokenKind::Bracketed ? table.Inner().toString() : table.text.toString();
}

QString WithLeadingColumn(const QString& translated, const QString& column) {
    qsizetype at = 0;
    while (at < translated.size() && translated[at].isSpace()) ++at;
    at += 6;  // "select"
    return translated.left(at) + u' ' + column + u',' + translated.mid(at);
}

namespace {

[[noreturn]] void CriterionError() {
    throw RuntimeError(DaoSyntaxInCriteria, QStringLiteral("Syntax error (missing operator) in expression."));
}

class CriterionReader {
public:
    explicit CriterionReader(QStringView text) : text_(text) {}

    Criterion Read() {
        Criterion criterion;
        SkipBlanks();
        criterion.column = Name();
        SkipBlanks();
        if (!Take(u'=')) CriterionError();
        SkipBlanks();
        if (AtQuote()) {
            criterion.isText = true;
            criterion.text = Quoted();
        } else {
            criterion.number = Number();
        }
        SkipBlanks();
        if (at_ != text_.size()) CriterionError();
        return criterion;
    }

private:
    void SkipBlanks() {
        while (at_ < text_.size() && text_[at_].isSpace()) ++at_;
    }
    bool Take(QChar c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    bool AtQuote() const { return at_ < text_.size() && (text_[at_] == u'\'' || text_[at_] == u'"'); }

    QString Name() {
        if (Take(u'[')) {
            const qsizetype close = text_.indexOf(u']', at_);
            if (close <= at_) CriterionError();
            QString name = text_.sliced(at_, close - at_).toString();
            at_ = close + 1;
            return name;
        }
        const qsizetype start = at_;
        while (at_ < text_.size() && IsNameCharacter(text_[at_])) ++at_;
        if (at_ == start) CriterionError();
        return text_.sliced(start, at_ - start).toString();
    }

    QString Quoted() {
        const qsizetype end = EndOfQuoted(text_, at_);
        if (end < 0) CriterionError();
        const QChar quote = text_[at_];
        QString text = text_.sliced(at_ + 1, end - at_ - 2).toString();
        text.replace(QString(2, quote), QString(quote));
        at_ = end;
        return text;
    }

    double Number() {
        const qsizetype start = at_;
        if (!Take(u'-')) Take(u'+');
        qsizetype digits = 0;
        while (at_ < text_.size() && (text_[at_].isDigit() || text_[at_] == u'.')) {
            if (text_[at_].isDigit()) ++digits;
            ++at_;
        }
        bool ok = false;
        const double number = text_.sliced(start, at_ - start).toDouble(&ok);
        if (digits == 0 || !ok) CriterionError();
        return number;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

}  // namespace

Criterion ParseCriterion(const QString& criteria) { return CriterionReader(criteria).Read(); }

}  // namespace skelda::dao
