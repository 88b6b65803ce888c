#include "Dao.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <vector>

#include "DaoColumns.h"
#include "DaoEngine.h"
#include "DaoSql.h"

namespace skelda {

namespace dao {

// The rows read so far, one after the other in one array, Width values a row: a query of
// thousands of rows grows one allocation rather than making one for each row.
class RowStore {
public:
    void SetWidth(size_t width) { width_ = width; }
    size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }
    Variant& At(size_t row, size_t column) { return cells_[row * width_ + column]; }
    // Appends a row: Value(column) for each column in order.
    template <class Value>
    void Append(Value value) {
        const size_t before = cells_.size();
        try {
            for (size_t column = 0; column < width_; ++column) cells_.push_back(value(column));
        } catch (...) {
            cells_.resize(before);  // no half row
            throw;
        }
        ++count_;
    }
    void PrependNullRow() {
        cells_.insert(cells_.begin(), width_, Variant::Null());
        ++count_;
    }
    void clear() {
        cells_.clear();
        count_ = 0;
    }

private:
    size_t width_ = 0;
    size_t count_ = 0;
    std::vector<Variant> cells_;
};

// A field of a recordset: a result column, and the table column that writes to it go to.
struct Field {
    QString name;
    ColumnKind kind;
    int tableColumn;  // -1 for a computed column
};

struct RecordsetState {
    std::shared_ptr<Connection> connection;  // first, so that it outlives the statements below
    bool closed = false;
    bool readOnly = true;
    std::shared_ptr<const TableInfo> table;  // where writes go
    std::vector<Field> fields;
    QHash<QString, int> fieldByName;              // by Key(name)
    mutable QHash<QString, int> fieldBySpelling;  // by the names as the program spelled them
    mutable QString lastSpelling;                 // the name asked for last, and its field
    mutable int lastField = -1;

    // The rows read so far. A query is read whole when it opens; a table is read row by row by
    // its row numbers, so that opening a large table to add a row reads one row only.
    RowStore rows;
    std::vector<sqlite3_int64> rowids;
    bool complete = false;
    Statement nextRow;       // of a table: the row after a row number
    qsizetype position = 0;  // -1 before the first row, rows.size() after the last
    qsizetype reached = 0;   // rows reached so far: RecordCount
    bool noMatch = false;

    enum class Mode { None, Adding, Editing } mode = Mode::None;
    std::vector<std::optional<Variant>> pending;    // by table column
    std::map<std::vector<int>, Statement> inserts;  // by the table columns written
    std::map<std::vector<int>, Statement> updates;

    bool Fetch(qsizetype index);
    void FetchNextTableRow();
    void AddFields(sqlite3_stmt* statement, int first);
    void ReadRow(sqlite3_stmt* statement, int first);
    int FieldIndex(const QString& name) const;
    void Reach(qsizetype index) { reached = std::max(reached, index + 1); }
    bool OnRow() { return position >= 0 && Fetch(position); }
    void Release();

    void Insert();
    void UpdateCurrent();
    sqlite3_stmt* WriteStatement(std::map<std::vector<int>, Statement>& cache, const std::vector<int>& columns,
                                 const QString& sql);
    void Run(sqlite3_stmt* statement);
};

// Here rather than with the rest of the connection, beside the recordsets that it closes.
void Connection::Close() {
    for (const auto& weak : recordsets)
        if (auto state = weak.lock()) state->Release();
    recordsets.clear();
    if (db) sqlite3_close_v2(db);
    db = nullptr;
}

bool RecordsetState::Fetch(qsizetype index) {
    while (qsizetype(rows.size()) <= index && !complete) FetchNextTableRow();
    return index >= 0 && index < qsizetype(rows.size());
}

void RecordsetState::FetchNextTableRow() {
    sqlite3_stmt* statement = nextRow.get();
    sqlite3_bind_int64(statement, 1, rowids.empty() ? std::numeric_limits<sqlite3_int64>::min() : rowids.back());
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW) {
        rowids.push_back(sqlite3_column_int64(statement, 0));
        ReadRow(statement, 1);
    } else {
        complete = true;
    }
    // Reset at once: no statement stays active between calls, so that every write commits.
    sqlite3_reset(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) connection->FailWith(sqlite3_extended_errcode(connection->db));
}

void RecordsetState::AddFields(sqlite3_stmt* statement, int first) {
    for (int i = first; i < sqlite3_column_count(statement); ++i) {
        const QString name = QString::fromUtf8(sqlite3_column_name(statement, i));
        const int column = table ? int(table->byName.value(Key(name), -1)) : -1;
        fieldByName.insert(Key(name), int(fields.size()));
        fields.push_back({name, KindOfDeclaredType(sqlite3_column_decltype(statement, i)), column});
    }
    rows.SetWidth(fields.size());
}

void RecordsetState::ReadRow(sqlite3_stmt* statement, int first) {
    rows.Append([&](size_t i) { return ReadValue(statement, first + int(i), fields[i].kind); });
}

int RecordsetState::FieldIndex(const QString& name) const {
    // A procedure names a field the same way on every row, most often by the very same text: the
    // name asked for last is known by its characters' address, a name already met by its
    // spelling, and only a new one pays for the key without case, which an accent makes slow.
    if (lastField >= 0 && name.constData() == lastSpelling.constData() && name.size() == lastSpelling.size())
        return lastField;
    int index;
    if (const auto known = fieldBySpelling.constFind(name); known != fieldBySpelling.constEnd()) {
        index = *known;
    } else {
        index = fieldByName.value(Key(name), -1);
        if (index < 0) Fail(DaoItemNotFound);
        fieldBySpelling.insert(name, index);
    }
    lastSpelling = name;  // a copy: the characters can't change under it
    lastField = index;
    return index;
}

void RecordsetState::Release() {
    closed = true;
    mode = Mode::None;
    nextRow.reset();
    inserts.clear();
    updates.clear();
    rows.clear();
    rowids.clear();
    connection.reset();
}

sqlite3_stmt* RecordsetState::WriteStatement(std::map<std::vector<int>, Statement>& cache,
                                             const std::vector<int>& columns, const QString& sql) {
    auto found = cache.find(columns);
    if (found == cache.end()) found = cache.emplace(columns, connection->Prepare(sql, {})).first;
    return found->second.get();
}

void RecordsetState::Run(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    const int detail = sqlite3_extended_errcode(connection->db);
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    if (code != SQLITE_DONE) connection->FailWith(detail);
}

namespace {

// The table columns given a value since AddNew or Edit.
std::vector<int> WrittenColumns(const std::vector<std::optional<Variant>>& pending) {
    std::vector<int> columns;
    for (size_t i = 0; i < pending.size(); ++i)
        if (pending[i]) columns.push_back(int(i));
    return columns;
}

}  // namespace

void RecordsetState::Insert() {
    const std::vector<int> columns = WrittenColumns(pending);
    QStringList names, places;
    for (int c : columns) {
        names << QuotedIdentifier(table->columns[size_t(c)].name);
        places << QStringLiteral("?%1").arg(places.size() + 1);
    }
    const QString sql = columns.empty()
                            ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(QuotedIdentifier(table->name))
                            : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                  .arg(QuotedIdentifier(table->name), names.join(u','), places.join(u','));
    sqlite3_stmt* statement = WriteStatement(inserts, columns, sql);
    for (size_t i = 0; i < columns.size(); ++i)
        BindValue(statement, int(i) + 1, *pending[size_t(columns[i])], table->columns[size_t(columns[i])].kind);
    Run(statement);
    // A table read row by row shows the new row at its end, as a dynaset does.
    if (nextRow) complete = false;
}

void RecordsetState::UpdateCurrent() {
    const std::vector<int> columns = WrittenColumns(pending);
    if (columns.empty()) return;
    QStringList sets;
    for (int c : columns)
        sets << QStringLiteral("%1 = ?%2").arg(QuotedIdentifier(table->columns[size_t(c)].name)).arg(sets.size() + 1);
    const QString sql = QStringLiteral("UPDATE %1 SET %2 WHERE _rowid_ = ?%3")
                            .arg(QuotedIdentifier(table->name), sets.join(u", "))
                            .arg(columns.size() + 1);
    sqlite3_stmt* statement = WriteStatement(updates, columns, sql);
    for (size_t i = 0; i < columns.size(); ++i)
        BindValue(statement, int(i) + 1, *pending[size_t(columns[i])], table->columns[size_t(columns[i])].kind);
    sqlite3_bind_int64(statement, int(columns.size()) + 1, rowids[size_t(position)]);
    Run(statement);
    // The row as the recordset now shows it.
    for (size_t f = 0; f < fields.size(); ++f)
        if (fields[f].tableColumn >= 0 && pending[size_t(fields[f].tableColumn)])
            rows.At(size_t(position), f) = *pending[size_t(fields[f].tableColumn)];
}

namespace {

// Opens a table by name: read row by row, in the order of its row numbers.
void OpenTable(RecordsetState& state, const QString& name, bool writable) {
    Connection& connection = *state.connection;
    state.table = connection.Table(name);
    state.readOnly = !writable;
    state.nextRow =
        connection.Prepare(QStringLiteral("SELECT _rowid_, * FROM %1 WHERE _rowid_ > ?1 ORDER BY _rowid_ LIMIT 1")
                               .arg(QuotedIdentifier(name)),
                           name);
    state.AddFields(state.nextRow.get(), 1);
}

// How the rows of a query's text come: as they are, or, from a table of distinct values, with the
// x'' that stands for Null last.
enum class NullDay { AsItIs, MarkedLast };

// The text to run for a query: the program's text in SQLite's dialect, with its text sorts in
// French order. The distinct values of one column (the list of days) are read from the table that
// the database keeps of them when the file has one, or else by jumping through an index of the
// column, so that the time they take follows the number of values, not of rows.
QString QueryText(RecordsetState& state, const QString& source, std::optional<int>& kindFromColumn, NullDay& nullDay) {
    Connection& connection = *state.connection;
    const QString single = SingleTableOf(source);
    std::shared_ptr<const TableInfo> info;
    if (!single.isEmpty() && !connection.Object(single).isView) info = connection.Table(connection.Object(single).name);
    const auto isText = [&info](QStringView name) {
        const int column = info ? info->byName.value(Key(name.toString()), -1) : -1;
        return column >= 0 && info->columns[size_t(column)].kind == ColumnKind::Text;
    };
    if (const std::optional<DistinctValues> distinct = DistinctValuesOf(source)) {
        const SchemaObject* object = connection.Find(distinct->table);
        const SchemaObject* values =
            object ? connection.Find(DistinctValuesTable(object->name, distinct->column)) : nullptr;
        if (object && !object->isView) {
            const std::shared_ptr<const TableInfo> table = connection.Table(object->name);
            const int column = table->byName.value(Key(distinct->column), -1);
            const DistinctValues query{object->name, distinct->column, distinct->name};
            if (column >= 0 && values && !values->isView) {
                kindFromColumn = column;
                state.table = table;
                nullDay = NullDay::MarkedLast;
                return DistinctValuesFromTable(query, values->name);
            }
            if (column >= 0 && connection.HasIndexLeadingWith(object->name, distinct->column)) {
                kindFromColumn = column;
                state.table = table;
                return DistinctValuesByJumps(query);
            }
        }
    }
    return Translate(source, isText);
}

// Opens a query: run once and read whole, as the engine's snapshot is a copy of the result. A
// dynaset of one table also reads the row numbers, for Edit.
void OpenQuery(RecordsetState& state, const QString& source, bool writable) {
    Connection& connection = *state.connection;
    std::optional<int> kindFromColumn;
    NullDay nullDay = NullDay::AsItIs;
    const QString translated = QueryText(state, source, kindFromColumn, nullDay);
    QString sql = translated;
    int first = 0;
    if (writable && !kindFromColumn) {
        const QString table = SingleTableOf(source);
        if (!table.isEmpty() && !connection.Object(table).isView) {
            state.table = connection.Table(connection.Object(table).name);
            state.readOnly = false;
            sql = WithLeadingColumn(translated, QStringLiteral("_rowid_"));
            first = 1;
        }
    }
    const Statement statement = connection.Prepare(sql, source);
    state.AddFields(statement.get(), first);
    if (kindFromColumn) {
        // The jumps give the values without the column's declared type: they read as the column.
        state.fields[0].kind = state.table->columns[size_t(*kindFromColumn)].kind;
        state.fields[0].tableColumn = -1;
        state.table.reset();
    }
    int code;
    bool nullLast = false;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        if (nullDay == NullDay::MarkedLast && sqlite3_column_type(statement.get(), 0) == SQLITE_BLOB &&
            sqlite3_column_bytes(statement.get(), 0) == 0) {
            nullLast = true;
            continue;
        }
        if (first == 1) state.rowids.push_back(sqlite3_column_int64(statement.get(), 0));
        state.ReadRow(statement.get(), first);
    }
    if (code != SQLITE_DONE) connection.FailWith(sqlite3_extended_errcode(connection.db), source);
    // Grouping puts the Null day before every other.
    if (nullLast) state.rows.PrependNullRow();
    state.complete = true;
}

bool Matches(const Variant& value, const Criterion& criterion) {
    if (value.IsNull() || value.IsEmpty()) return false;
    if (criterion.isText) return value.ToText().compare(criterion.text, Qt::CaseInsensitive) == 0;
    if (value.kind() == Variant::Kind::String && !value.IsNumeric()) Fail(DaoCriteriaTypeMismatch);
    return value.ToDouble() == criterion.number;
}

}  // namespace

}  // namespace dao

using dao::RecordsetState;

// --- Database ---------------------------------------------------------------------------------

Database OpenDatabase(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() || file.isDir())
        dao::Fail(DaoFileNotFound, QStringLiteral("Could not find file '%1'.").arg(path));
    auto connection = std::make_shared<dao::Connection>();
    connection->Open(path);
    return Database(std::move(connection));
}

dao::Connection& Database::Open() const {
    if (!connection_) dao::Fail(ObjectNotSet);
    if (!connection_->db) dao::Fail(DaoObjectInvalid);
    return *connection_;
}

Recordset Database::OpenRecordset(const QString& source, int type) const {
    dao::Connection& connection = Open();
    if (type != dbOpenTable && type != dbOpenDynaset && type != dbOpenSnapshot) dao::Fail(DaoInvalidArgument);
    auto state = std::make_shared<RecordsetState>();
    state->connection = connection_;
    const bool writable = type != dbOpenSnapshot;
    if (dao::IsSqlText(source)) {
        if (type == dbOpenTable) dao::Fail(DaoInvalidOperation);
        dao::OpenQuery(*state, source, writable);
    } else {
        QString name = source.trimmed();
        if (name.startsWith(u'[') && name.endsWith(u']')) name = name.mid(1, name.size() - 2);
        const dao::SchemaObject& object = connection.Object(name);
        if (object.isView && type == dbOpenTable) dao::Fail(DaoInvalidOperation);
        if (object.isView)
            dao::OpenQuery(*state, QStringLiteral("SELECT * FROM [%1]").arg(object.name), false);
        else
            dao::OpenTable(*state, object.name, writable);
    }
    state->position = 0;
    if (state->Fetch(0)) state->Reach(0);
    std::erase_if(connection.recordsets, [](const auto& weak) { return weak.expired(); });
    connection.recordsets.push_back(state);
    return Recordset(std::move(state));
}

void Database::Close() { Open().Close(); }

// --- Recordset --------------------------------------------------------------------------------

RecordsetState& Recordset::Open() const {
    if (!state_) dao::Fail(ObjectNotSet);
    if (state_->closed) dao::Fail(DaoObjectInvalid);
    return *state_;
}

bool Recordset::Bof() const {
    RecordsetState& state = Open();
    return state.position < 0 || !state.Fetch(0);
}

bool Recordset::Eof() const {
    RecordsetState& state = Open();
    return state.position >= 0 && !state.Fetch(state.position);
}

void Recordset::MoveNext() {
    if (Eof()) dao::Fail(DaoNoCurrentRecord);
    RecordsetState& state = *state_;
    state.mode = RecordsetState::Mode::None;
    ++state.position;
    if (state.Fetch(state.position)) state.Reach(state.position);
}

void Recordset::MovePrevious() {
    if (Bof()) dao::Fail(DaoNoCurrentRecord);
    RecordsetState& state = *state_;
    state.mode = RecordsetState::Mode::None;
    // From after the last row this lands on the last row, which Eof() has already read.
    state.position = std::min(state.position, qsizetype(state.rows.size())) - 1;
}

void Recordset::MoveFirst() {
    RecordsetState& state = Open();
    if (!state.Fetch(0)) dao::Fail(DaoNoCurrentRecord);
    state.mode = RecordsetState::Mode::None;
    state.position = 0;
}

void Recordset::MoveLast() {
    RecordsetState& state = Open();
    state.Fetch(std::numeric_limits<qsizetype>::max());
    if (state.rows.empty()) dao::Fail(DaoNoCurrentRecord);
    state.mode = RecordsetState::Mode::None;
    state.position = qsizetype(state.rows.size()) - 1;
    state.Reach(state.position);
}

long Recordset::RecordCount() const { return long(Open().reached); }

Variant Recordset::Fields(const QString& name) const {
    RecordsetState& state = Open();
    const int index = state.FieldIndex(name);
    const int column = state.fields[size_t(index)].tableColumn;
    if (state.mode != RecordsetState::Mode::None && column >= 0 && state.pending[size_t(column)])
        return *state.pending[size_t(column)];
    if (state.mode == RecordsetState::Mode::Adding) return Variant::Null();
    if (!state.OnRow()) dao::Fail(DaoNoCurrentRecord);
    return state.rows.At(size_t(state.position), size_t(index));
}

QStringList Recordset::FieldNames() const {
    QStringList names;
    for (const dao::Field& field : Open().fields) names << field.name;
    return names;
}

void Recordset::FindFirst(const QString& criteria) {
    RecordsetState& state = Open();
    // The criterion is read here and compared here: a text from outside never becomes SQL.
    const dao::Criterion criterion = dao::ParseCriterion(criteria);
    const int index = state.fieldByName.value(dao::Key(criterion.column), -1);
    if (index < 0)
        dao::Fail(DaoUnknownName, QStringLiteral("The Microsoft Jet database engine does not recognize '%1' as a valid "
                                                 "field name or expression.")
                                      .arg(criterion.column));
    state.mode = RecordsetState::Mode::None;
    for (qsizetype row = 0; state.Fetch(row); ++row) {
        if (dao::Matches(state.rows.At(size_t(row), size_t(index)), criterion)) {
            state.position = row;
            state.Reach(row);
            state.noMatch = false;
            return;
        }
    }
    // No row fits: the current row stays where it was.
    state.noMatch = true;
}

bool Recordset::NoMatch() const { return Open().noMatch; }

void Recordset::AddNew() {
    RecordsetState& state = Open();
    if (state.readOnly) dao::Fail(DaoReadOnly);
    state.mode = RecordsetState::Mode::Adding;
    state.pending.assign(state.table->columns.size(), std::nullopt);
}

void Recordset::Edit() {
    RecordsetState& state = Open();
    if (state.readOnly) dao::Fail(DaoReadOnly);
    if (!state.OnRow()) dao::Fail(DaoNoCurrentRecord);
    state.mode = RecordsetState::Mode::Editing;
    state.pending.assign(state.table->columns.size(), std::nullopt);
}

void Recordset::SetField(const QString& name, const Variant& value) {
    RecordsetState& state = Open();
    const dao::Field& field = state.fields[size_t(state.FieldIndex(name))];
    if (state.readOnly) dao::Fail(DaoReadOnly);
    if (state.mode == RecordsetState::Mode::None) dao::Fail(DaoUpdateWithoutEdit);
    if (field.tableColumn < 0 || state.table->columns[size_t(field.tableColumn)].assignedByDatabase)
        dao::Fail(DaoFieldNotUpdatable);
    const dao::TableColumn& column = state.table->columns[size_t(field.tableColumn)];
    state.pending[size_t(field.tableColumn)] = dao::CoerceToColumn(value, column.kind);
}

void Recordset::Update() {
    RecordsetState& state = Open();
    if (state.mode == RecordsetState::Mode::None) dao::Fail(DaoUpdateWithoutEdit);
    if (state.mode == RecordsetState::Mode::Adding)
        state.Insert();
    else
        state.UpdateCurrent();
    // Only a stored row ends the writing: a refused one stays pending, as with the engine.
    state.mode = RecordsetState::Mode::None;
    state.pending.clear();
}

void Recordset::CancelUpdate() {
    RecordsetState& state = Open();
    if (state.mode == RecordsetState::Mode::None) dao::Fail(DaoUpdateWithoutEdit);
    state.mode = RecordsetState::Mode::None;
    state.pending.clear();
}

void Recordset::Close() { Open().Release(); }

}  // namespace skelda
