#include "DaoEngine.h"

#include <sqlite3.h>

#include <QCollator>
#include <QLocale>

#include "Dao.h"
#include "DaoSql.h"

namespace skelda::dao {

namespace {

[[noreturn]] void TableNotFound(const QString& name) {
    Fail(DaoTableNotFound,
         QStringLiteral("The Microsoft Jet database engine cannot find the input table or query '%1'. "
                        "Make sure it exists and that its name is spelled correctly.")
             .arg(name));
}

// Texts in the order a reader of French expects: accents are second to the letters and case
// third, so that "Évreux" comes between "Dijon" and "Figari" rather than after "Zurich" as a
// comparison of character codes puts it. SQLite hands over the texts in UTF-8.
int CompareFrench(void*, int lengthA, const void* a, int lengthB, const void* b) {
    // One collator for the process, made at the first comparison rather than at every opening
    // of the file, which most events do without sorting any text.
    static const QCollator collator(QLocale(QLocale::French, QLocale::France));
    const QString left = QString::fromUtf8(static_cast<const char*>(a), lengthA);
    const QString right = QString::fromUtf8(static_cast<const char*>(b), lengthB);
    return collator.compare(left, right);
}

void RegisterFrenchCollation(sqlite3* db) {
    sqlite3_create_collation_v2(db, kFrenchCollation, SQLITE_UTF8, nullptr, &CompareFrench, nullptr);
}

}  // namespace

void StatementDeleter::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void Fail(int number, const QString& description) {
    throw RuntimeError(number, description.isEmpty() ? ErrorDescription(number) : description);
}

void Connection::Open(const QString& file) {
    path = file;
    // One thread uses a connection, within one event: SQLite needn't lock it at every call, which
    // it otherwise does for each value of each row read.
    const int code =
        sqlite3_open_v2(file.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (db) sqlite3_extended_result_codes(db, 1);
    if (code != SQLITE_OK) FailWith(code);
    // Another program may be writing for a moment: wait for it rather than fail at once.
    sqlite3_busy_timeout(db, 2000);
    RegisterFrenchCollation(db);
    LoadObjects();  // which also proves that the file is a database
}

void Connection::FailWith(int code, const QString& source) const {
    const QString message = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString();
    const auto after = [&](const char* prefix) { return message.mid(qsizetype(qstrlen(prefix))); };
    if (message.startsWith(u"no such table: ")) {
        QString name = after("no such table: ");
        if (name.startsWith(u"main.")) name = name.mid(5);
        TableNotFound(name);
    }
    if (message.startsWith(u"no such column: ")) Fail(DaoTooFewParameters);
    if (message.startsWith(u"no such function: "))
        Fail(DaoUndefinedFunction,
             QStringLiteral("Undefined function '%1' in expression.").arg(after("no such function: ")));
    switch (code) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            Fail(DaoDuplicateKey);
        case SQLITE_CONSTRAINT_NOTNULL:
            Fail(DaoNullNotAllowed,
                 QStringLiteral("The field '%1' cannot contain a Null value because the Required property "
                                "for this field is set to True. Enter a value in this field.")
                     .arg(after("NOT NULL constraint failed: ")));
    }
    switch (code & 0xff) {
        case SQLITE_ERROR:
            if (!source.isEmpty())
                Fail(DaoSyntaxInQuery, QStringLiteral("Syntax error in query expression '%1'.").arg(source));
            break;
        case SQLITE_READONLY:
            Fail(DaoReadOnly);
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            Fail(DaoLocked);
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            Fail(DaoUnrecognizedFormat, QStringLiteral("Unrecognized database format '%1'.").arg(path));
        case SQLITE_CANTOPEN:
            Fail(DaoCannotOpen,
                 QStringLiteral("The Microsoft Jet database engine cannot open the file '%1'. It is already opened "
                                "exclusively by another user, or you need permission to view its data.")
                     .arg(path));
        case SQLITE_IOERR:
        case SQLITE_FULL:
            Fail(DaoDiskError, QStringLiteral("Disk or network error."));
    }
    Fail(DaoReservedError,
         QStringLiteral("Reserved error (%1); there is no message for this error. %2").arg(code).arg(message));
}

Statement Connection::Prepare(const QString& sql, const QString& source) {
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v3(db, text.constData(), int(text.size()), SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) FailWith(sqlite3_extended_errcode(db), source);
    return Statement(statement);
}

void Connection::LoadObjects() {
    Statement list =
        Prepare(QStringLiteral("SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view')"), {});
    int code;
    while ((code = sqlite3_step(list.get())) == SQLITE_ROW) {
        const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(list.get(), 0));
        const auto* type = reinterpret_cast<const char*>(sqlite3_column_text(list.get(), 1));
        objects.push_back({QString::fromUtf8(name), qstrcmp(type, "view") == 0});
    }
    if (code != SQLITE_DONE) FailWith(sqlite3_extended_errcode(db));
}

const SchemaObject* Connection::Find(const QString& name) const {
    // Names are matched without regard to case, accented letters included.
    for (const SchemaObject& object : objects)
        if (object.name.compare(name, Qt::CaseInsensitive) == 0) return &object;
    return nullptr;
}

const SchemaObject& Connection::Object(const QString& name) const {
    if (const SchemaObject* object = Find(name)) return *object;
    TableNotFound(name);
}

std::shared_ptr<const TableInfo> Connection::Table(const QString& name) {
    if (auto found = tables.constFind(Key(name)); found != tables.constEnd()) return *found;
    auto info = std::make_shared<TableInfo>();
    info->name = name;
    Statement pragma = Prepare(QStringLiteral("PRAGMA table_info(%1)").arg(QuotedIdentifier(name)), {});
    int keyColumns = 0;
    while (sqlite3_step(pragma.get()) == SQLITE_ROW) {
        const QString column = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(pragma.get(), 1)));
        const char* type = reinterpret_cast<const char*>(sqlite3_column_text(pragma.get(), 2));
        const bool inKey = sqlite3_column_int(pragma.get(), 5) > 0;
        keyColumns += inKey ? 1 : 0;
        // An INTEGER PRIMARY KEY is the row number itself, which the database assigns.
        info->byName.insert(Key(column), int(info->columns.size()));
        info->columns.push_back({column, KindOfDeclaredType(type), inKey && qstricmp(type, "INTEGER") == 0});
    }
    if (keyColumns > 1)
        for (TableColumn& column : info->columns) column.assignedByDatabase = false;
    tables.insert(Key(name), info);
    return info;
}

bool Connection::HasIndexLeadingWith(const QString& table, const QString& column) {
    Statement indexes =
        Prepare(QStringLiteral("SELECT 1 FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) AS i "
                               "WHERE l.partial = 0 AND i.seqno = 0 AND i.name = ?2 COLLATE NOCASE"),
                {});
    const QByteArray t = table.toUtf8(), c = column.toUtf8();
    sqlite3_bind_text(indexes.get(), 1, t.constData(), int(t.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(indexes.get(), 2, c.constData(), int(c.size()), SQLITE_TRANSIENT);
    return sqlite3_step(indexes.get()) == SQLITE_ROW;
}

}  // namespace skelda::dao
