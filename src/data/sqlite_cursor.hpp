// A forward cursor over one SQLite statement, with SQLite's values turned into Variants.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <quilta/data/recordset.hpp>
#include <string>
#include <vector>

namespace quilta::data {

[[noreturn]] void RaiseSqlite(sqlite3* db, int rc);

// Owns the connection handle; shared by a database and the record sets it made.
struct SqliteConnection {
  explicit SqliteConnection(const std::string& path);
  ~SqliteConnection();
  sqlite3* db = nullptr;
};

// A prepared statement with its parameters bound; finalized when it goes.
class SqliteStatement {
 public:
  SqliteStatement(std::shared_ptr<SqliteConnection> connection, std::string_view sql,
                  const std::vector<Variant>& params);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  // The next row, false at the end.
  bool Step();
  void Reset();
  sqlite3_stmt* Handle() const { return stmt_; }
  sqlite3* Db() const { return connection_->db; }

 private:
  std::shared_ptr<SqliteConnection> connection_;
  sqlite3_stmt* stmt_ = nullptr;
};

class SqliteCursor final : public RowCursor {
 public:
  SqliteCursor(std::shared_ptr<SqliteConnection> connection, std::string_view sql,
               std::vector<Variant> params);

  const std::vector<FieldInfo>& Fields() override { return fields_; }
  int64_t Count() override;
  bool Rewind() override;
  bool Advance() override;
  const Variant& Value(int32_t field) const override;
  Variant CopyValue(int32_t field) const override;

  // How a column's values become Variants, from its declared type.
  enum class Kind : uint8_t { Plain, Boolean, Date, Double, Currency };

 private:
  std::shared_ptr<SqliteConnection> connection_;
  std::string sql_;
  std::vector<Variant> params_;
  SqliteStatement stmt_;
  std::vector<FieldInfo> fields_;
  std::vector<Kind> kinds_;
  // The current record's values, converted when first asked for: a fill that copies every
  // value out once never needs them.
  mutable std::vector<Variant> row_;
  mutable std::vector<uint8_t> converted_;
};

}  // namespace quilta::data
