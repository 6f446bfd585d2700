#include "data/sqlite_cursor.hpp"

#include <algorithm>
#include <cctype>
#include <limits>
#include <quilta/data/sqlite.hpp>

#include "data/date_text.hpp"

namespace quilta::data {
namespace {

std::string Upper(const char* s) {
  std::string out = s ? s : "";
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

SqliteCursor::Kind KindOf(const char* declared) {
  std::string t = Upper(declared);
  auto has = [&](const char* word) { return t.find(word) != std::string::npos; };
  if (has("BOOL")) return SqliteCursor::Kind::Boolean;
  if (has("DATE") || has("TIME")) return SqliteCursor::Kind::Date;
  if (has("MONEY") || has("CURRENCY")) return SqliteCursor::Kind::Currency;
  if (has("NUMERIC") || has("DECIMAL")) return SqliteCursor::Kind::Double;
  return SqliteCursor::Kind::Plain;
}

Variant Integer(sqlite3_int64 v) {
  if (v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max())
    return Variant(static_cast<int32_t>(v));
  return Variant(static_cast<int64_t>(v));
}

std::string_view Text(sqlite3_value* v) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(v));
  return {text ? text : "", static_cast<size_t>(sqlite3_value_bytes(v))};
}

Variant PlainValue(sqlite3_value* v, int type) {
  switch (type) {
    case SQLITE_INTEGER:
      return Integer(sqlite3_value_int64(v));
    case SQLITE_FLOAT:
      return sqlite3_value_double(v);
    case SQLITE_NULL:
      return Variant::Null();
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const char*>(sqlite3_value_blob(v));
      return std::string_view(bytes ? bytes : "", static_cast<size_t>(sqlite3_value_bytes(v)));
    }
    default:
      return Text(v);
  }
}

// SQLite keeps dates as ISO text, Julian day numbers (reals) or Unix seconds (integers).
Variant DateValue(sqlite3_value* v, int type) {
  constexpr double kJulianDayOfSerialZero = 2415018.5;
  constexpr double kSerialOf1970 = 25569;
  if (type == SQLITE_FLOAT) return Variant::Date(sqlite3_value_double(v) - kJulianDayOfSerialZero);
  if (type == SQLITE_INTEGER)
    return Variant::Date(static_cast<double>(sqlite3_value_int64(v)) / 86400.0 + kSerialOf1970);
  if (type == SQLITE_TEXT) {
    if (auto serial = DateSerialFromText(Text(v))) return Variant::Date(*serial);
  }
  return PlainValue(v, type);
}

Variant BooleanValue(sqlite3_value* v, int type) {
  if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return sqlite3_value_double(v) != 0;
  if (type == SQLITE_TEXT) {
    std::string t = Upper(reinterpret_cast<const char*>(sqlite3_value_text(v)));
    if (t == "TRUE" || t == "T" || t == "1") return true;
    if (t == "FALSE" || t == "F" || t == "0") return false;
  }
  return PlainValue(v, type);
}

// One call into the statement per value: the value's own accessors take no lock.
Variant ValueOf(sqlite3_stmt* s, int i, SqliteCursor::Kind kind) {
  sqlite3_value* v = sqlite3_column_value(s, i);
  int type = sqlite3_value_type(v);
  if (type == SQLITE_NULL) return Variant::Null();
  switch (kind) {
    case SqliteCursor::Kind::Boolean:
      return BooleanValue(v, type);
    case SqliteCursor::Kind::Date:
      return DateValue(v, type);
    case SqliteCursor::Kind::Double:
      return type == SQLITE_TEXT ? PlainValue(v, type) : Variant(sqlite3_value_double(v));
    case SqliteCursor::Kind::Currency:
      return type == SQLITE_TEXT ? PlainValue(v, type) : Variant::Currency(sqlite3_value_double(v));
    default:
      return PlainValue(v, type);
  }
}

void Bind(sqlite3_stmt* stmt, sqlite3* db, int i, const Variant& v) {
  int rc = SQLITE_OK;
  switch (v.Type()) {
    case vbEmpty:
    case vbNull:
      rc = sqlite3_bind_null(stmt, i);
      break;
    case vbBoolean:
    case vbByte:
    case vbInteger:
    case vbLong:
    case vbLongLong:
      rc = sqlite3_bind_int64(stmt, i, v.Type() == vbLongLong ? v.LongLongValue() : CLng(v));
      break;
    case vbString: {
      std::string_view s = v.StringView();
      rc = sqlite3_bind_text(stmt, i, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
      break;
    }
    default:
      rc = sqlite3_bind_double(stmt, i, CDbl(v));
  }
  if (rc != SQLITE_OK) RaiseSqlite(db, rc);
}

std::string_view WithoutTrailingSemicolons(std::string_view sql) {
  while (!sql.empty() &&
         (std::isspace(static_cast<unsigned char>(sql.back())) || sql.back() == ';'))
    sql.remove_suffix(1);
  return sql;
}

}  // namespace

void RaiseSqlite(sqlite3* db, int rc) {
  std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
  throw Error(rc, rc, message, "SQLite");
}

SqliteConnection::SqliteConnection(const std::string& path) {
  // A grid and its record sets live on one thread: the connection takes no lock per call.
  int rc = sqlite3_open_v2(
      path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    sqlite3_close(db);
    db = nullptr;
    throw Error(rc, rc, message, "SQLite");
  }
}

SqliteConnection::~SqliteConnection() { sqlite3_close(db); }

SqliteStatement::SqliteStatement(std::shared_ptr<SqliteConnection> connection, std::string_view sql,
                                 const std::vector<Variant>& params)
    : connection_(std::move(connection)) {
  int rc = sqlite3_prepare_v2(Db(), sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr);
  if (rc != SQLITE_OK) RaiseSqlite(Db(), rc);
  if (!stmt_) throw Error(SQLITE_MISUSE, SQLITE_MISUSE, "The query holds no statement.", "SQLite");
  for (size_t i = 0; i < params.size(); ++i) {
    try {
      Bind(stmt_, Db(), static_cast<int>(i) + 1, params[i]);
    } catch (...) {
      sqlite3_finalize(stmt_);
      throw;
    }
  }
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(stmt_); }

bool SqliteStatement::Step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  RaiseSqlite(Db(), rc);
}

void SqliteStatement::Reset() { sqlite3_reset(stmt_); }

SqliteCursor::SqliteCursor(std::shared_ptr<SqliteConnection> connection, std::string_view sql,
                           std::vector<Variant> params)
    : connection_(connection),
      sql_(WithoutTrailingSemicolons(sql)),
      params_(std::move(params)),
      stmt_(connection, sql_, params_) {
  sqlite3_stmt* s = stmt_.Handle();
  int n = sqlite3_column_count(s);
  for (int i = 0; i < n; ++i) {
    auto text = [](const char* t) { return std::string(t ? t : ""); };
    fields_.push_back({text(sqlite3_column_name(s, i)), text(sqlite3_column_origin_name(s, i)),
                       text(sqlite3_column_table_name(s, i))});
    kinds_.push_back(KindOf(sqlite3_column_decltype(s, i)));
  }
  row_.resize(static_cast<size_t>(n));
  converted_.assign(static_cast<size_t>(n), 0);
}

int64_t SqliteCursor::Count() {
  SqliteStatement count(connection_, "SELECT count(*) FROM (" + sql_ + ")", params_);
  return count.Step() ? sqlite3_column_int64(count.Handle(), 0) : 0;
}

const Variant& SqliteCursor::Value(int32_t field) const {
  const auto i = static_cast<size_t>(field);
  if (!converted_[i]) {
    row_[i] = ValueOf(stmt_.Handle(), field, kinds_[i]);
    converted_[i] = 1;
  }
  return row_[i];
}

Variant SqliteCursor::CopyValue(int32_t field) const {
  const auto i = static_cast<size_t>(field);
  return converted_[i] ? row_[i] : ValueOf(stmt_.Handle(), field, kinds_[i]);
}

bool SqliteCursor::Rewind() {
  stmt_.Reset();
  return Advance();
}

bool SqliteCursor::Advance() {
  if (!stmt_.Step()) return false;
  std::fill(converted_.begin(), converted_.end(), uint8_t{0});
  return true;
}

// ---- SqliteDatabase ----------------------------------------------------------------------------

struct SqliteDatabase::Connection : SqliteConnection {
  using SqliteConnection::SqliteConnection;
};

SqliteDatabase::SqliteDatabase(const std::string& path)
    : connection_(std::make_shared<Connection>(path)) {}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::Execute(std::string_view sql) {
  char* message = nullptr;
  int rc = sqlite3_exec(connection_->db, std::string(sql).c_str(), nullptr, nullptr, &message);
  if (rc == SQLITE_OK) return;
  std::string text = message ? message : sqlite3_errstr(rc);
  sqlite3_free(message);
  throw Error(rc, rc, text, "SQLite");
}

std::shared_ptr<Recordset> SqliteDatabase::Query(std::string_view sql,
                                                 const std::vector<Variant>& params) {
  return std::make_shared<Recordset>(std::make_unique<SqliteCursor>(connection_, sql, params));
}

sqlite3* SqliteDatabase::Handle() const { return connection_->db; }

}  // namespace quilta::data
