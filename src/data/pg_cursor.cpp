#include "data/pg_cursor.hpp"

#include <charconv>
#include <cstdlib>
#include <quilta/data/postgres.hpp>

#include "data/date_text.hpp"

namespace quilta::data {
namespace {

constexpr int kBatchRows = 4096;

// Type oids of the built-in types (pg_type.h is a server header).
enum : Oid {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kOid = 26,
  kFloat4 = 700,
  kFloat8 = 701,
  kNumeric = 1700,
  kDate = 1082,
  kTime = 1083,
  kTimestamp = 1114,
  kTimestampTz = 1184
};

[[noreturn]] void Raise(std::string message) {
  while (!message.empty() && (message.back() == '\n' || message.back() == ' ')) message.pop_back();
  throw Error(1, 1, message, "PostgreSQL");
}

template <class T>
T Parse(std::string_view s) {
  T v{};
  std::from_chars(s.data(), s.data() + s.size(), v);
  return v;
}

Variant ValueOf(std::string_view s, Oid type) {
  switch (type) {
    case kBool:
      return s == "t";
    case kInt2:
      return Parse<int16_t>(s);
    case kInt4:
      return Parse<int32_t>(s);
    case kInt8:
      return static_cast<int64_t>(Parse<long long>(s));
    case kOid:
      return static_cast<int64_t>(Parse<long long>(s));
    case kFloat4:
      return std::strtof(std::string(s).c_str(), nullptr);
    case kFloat8:
    case kNumeric:
      return std::strtod(std::string(s).c_str(), nullptr);
    case kDate:
    case kTime:
    case kTimestamp:
    case kTimestampTz:
      if (auto serial = DateSerialFromText(s)) return Variant::Date(*serial);
      return s;
    default:
      return s;
  }
}

std::string ParamText(const Variant& v) {
  if (v.Type() == vbBoolean) return v.BoolValue() ? "true" : "false";
  if (v.Type() == vbDate) return Format(v, "yyyy-mm-dd hh:nn:ss");
  return CStr(v);
}

}  // namespace

PgConnection::PgConnection(const std::string& conninfo) {
  conn = PQconnectdb(conninfo.c_str());
  if (PQstatus(conn) != CONNECTION_OK) {
    std::string message = PQerrorMessage(conn);
    PQfinish(conn);
    conn = nullptr;
    Raise(message);
  }
  // Notices ("table does not exist, skipping") are the server talking to itself; a grid has no
  // one to show them to.
  PQsetNoticeProcessor(
      conn, [](void*, const char*) {}, nullptr);
}

PgConnection::~PgConnection() { PQfinish(conn); }

PgResult PgConnection::Run(const std::string& sql, const std::vector<Variant>& params) {
  std::vector<std::string> texts;
  std::vector<const char*> values;
  texts.reserve(params.size());
  for (const Variant& p : params) {
    bool null = p.IsNull() || p.IsEmpty();
    texts.push_back(null ? std::string() : ParamText(p));
    values.push_back(null ? nullptr : texts.back().c_str());
  }
  PgResult r(PQexecParams(conn, sql.c_str(), static_cast<int>(params.size()), nullptr,
                          values.data(), nullptr, nullptr, 0),
             &PQclear);
  ExecStatusType status = r ? PQresultStatus(r.get()) : PGRES_FATAL_ERROR;
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
    std::string message = r ? PQresultErrorMessage(r.get()) : PQerrorMessage(conn);
    const char* state = r ? PQresultErrorField(r.get(), PG_DIAG_SQLSTATE) : nullptr;
    Raise(state ? std::string(state) + ": " + message : message);
  }
  return r;
}

void PgConnection::CursorOpened() {
  if (openCursors++ == 0 && PQtransactionStatus(conn) == PQTRANS_IDLE) {
    Run("BEGIN");
    ownTransaction = true;
  }
}

void PgConnection::CursorClosed() {
  if (--openCursors > 0 || !ownTransaction) return;
  ownTransaction = false;
  // A failed transaction cannot commit; ending it is all that is left to do.
  PgResult r(PQexec(conn, PQtransactionStatus(conn) == PQTRANS_INERROR ? "ROLLBACK" : "COMMIT"),
             &PQclear);
}

PgCursor::PgCursor(std::shared_ptr<PgConnection> connection, std::string_view sql,
                   std::vector<Variant> params)
    : connection_(std::move(connection)), sql_(sql), params_(std::move(params)) {
  while (!sql_.empty() &&
         (sql_.back() == ';' || std::isspace(static_cast<unsigned char>(sql_.back()))))
    sql_.pop_back();
  name_ = "quilta_cursor_" + std::to_string(++connection_->cursorNames);
  Open();
  PGresult* r = batch_.get();
  int n = PQnfields(r);
  for (int i = 0; i < n; ++i) {
    fields_.push_back({PQfname(r, i), {}, {}});
    types_.push_back(PQftype(r, i));
    tables_.push_back(PQftable(r, i));
    tableColumns_.push_back(PQftablecol(r, i));
  }
  row_.resize(static_cast<size_t>(n));
}

PgCursor::~PgCursor() {
  try {
    Close();
  } catch (const Error&) {
    // The server is gone or the transaction failed: there is nothing left to close.
  }
}

void PgCursor::Open() {
  connection_->CursorOpened();
  try {
    connection_->Run("DECLARE " + name_ + " NO SCROLL CURSOR FOR " + sql_, params_);
  } catch (...) {
    connection_->CursorClosed();
    throw;
  }
  open_ = true;
  Fetch();
}

void PgCursor::Close() {
  if (!open_) return;
  open_ = false;
  batch_.reset();
  if (PQtransactionStatus(connection_->conn) != PQTRANS_INERROR) connection_->Run("CLOSE " + name_);
  connection_->CursorClosed();
}

void PgCursor::Fetch() {
  batch_ = connection_->Run("FETCH FORWARD " + std::to_string(kBatchRows) + " FROM " + name_);
  next_ = 0;
}

// The table and column each field comes from, as the server's catalogue names them.
void PgCursor::ReadBaseNames() {
  for (size_t i = 0; i < fields_.size(); ++i) {
    Oid table = tables_[i];
    int column = tableColumns_[i];
    if (table == InvalidOid || column <= 0) continue;
    PgResult r = connection_->Run(
        "SELECT a.attname, c.relname FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
        "WHERE a.attrelid = $1 AND a.attnum = $2",
        {Variant(static_cast<int64_t>(table)), Variant(column)});
    if (PQntuples(r.get()) != 1) continue;
    fields_[i].baseColumn = PQgetvalue(r.get(), 0, 0);
    fields_[i].baseTable = PQgetvalue(r.get(), 0, 1);
  }
}

int64_t PgCursor::Count() {
  PgResult r = connection_->Run("SELECT count(*) FROM (" + sql_ + ") AS quilta_count", params_);
  return PQntuples(r.get()) == 1 ? Parse<long long>(PQgetvalue(r.get(), 0, 0)) : 0;
}

bool PgCursor::Rewind() {
  // A fresh cursor stands before its first row; anything else starts over.
  if (!open_ || next_ != 0 || !batch_) {
    Close();
    Open();
  }
  return Advance();
}

bool PgCursor::Advance() {
  if (!open_) return false;
  if (next_ >= PQntuples(batch_.get())) {
    if (PQntuples(batch_.get()) < kBatchRows) return false;
    Fetch();
    if (PQntuples(batch_.get()) == 0) return false;
  }
  PGresult* r = batch_.get();
  for (size_t i = 0; i < row_.size(); ++i) {
    int f = static_cast<int>(i);
    if (PQgetisnull(r, next_, f)) {
      row_[i] = Variant::Null();
    } else {
      row_[i] = ValueOf({PQgetvalue(r, next_, f), static_cast<size_t>(PQgetlength(r, next_, f))},
                        types_[i]);
    }
  }
  ++next_;
  return true;
}

// ---- PgDatabase --------------------------------------------------------------------------------

struct PgDatabase::Connection : PgConnection {
  using PgConnection::PgConnection;
};

PgDatabase::PgDatabase(const std::string& conninfo)
    : connection_(std::make_shared<Connection>(conninfo)) {}

PgDatabase::~PgDatabase() = default;

void PgDatabase::Execute(std::string_view sql) {
  PgResult r(PQexec(connection_->conn, std::string(sql).c_str()), &PQclear);
  ExecStatusType status = r ? PQresultStatus(r.get()) : PGRES_FATAL_ERROR;
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
    Raise(r ? PQresultErrorMessage(r.get()) : PQerrorMessage(connection_->conn));
}

std::shared_ptr<Recordset> PgDatabase::Query(std::string_view sql,
                                             const std::vector<Variant>& params) {
  return std::make_shared<Recordset>(std::make_unique<PgCursor>(connection_, sql, params));
}

PGconn* PgDatabase::Handle() const { return connection_->conn; }

}  // namespace quilta::data
