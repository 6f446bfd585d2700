// SQLite behind an ADO-shaped record set: the embedded database a grid fills from by default.
#pragma once

#include <memory>
#include <quilta/data/recordset.hpp>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace quilta::data {

// One connection. Failures raise quilta::Error carrying SQLite's result code as number and its
// message as description, with source "SQLite".
class SqliteDatabase {
 public:
  // A database file (created when missing) or ":memory:".
  explicit SqliteDatabase(const std::string& path);
  ~SqliteDatabase();
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  // Runs statements that return no rows (several, separated by semicolons).
  void Execute(std::string_view sql);
  // A record set over one query; parameters bind to ?1, ?2, ... Record sets keep the connection
  // open for as long as they live. Integers come as Long (LongLong beyond 32 bits), reals as
  // Double, text as String, NULL as Null; columns declared BOOLEAN as Boolean, DATE, DATETIME,
  // TIMESTAMP or TIME as Date, NUMERIC or DECIMAL as Double and MONEY or CURRENCY as Currency.
  std::shared_ptr<Recordset> Query(std::string_view sql, const std::vector<Variant>& params = {});

  sqlite3* Handle() const;

 private:
  struct Connection;
  std::shared_ptr<Connection> connection_;
};

}  // namespace quilta::data
