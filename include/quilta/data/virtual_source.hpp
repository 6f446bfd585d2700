// Virtual mode from a query: the grid asks for rows as it needs them (RequestRow and
// RequestRowData) and a VirtualRowSource answers them a page at a time, each page read by key
// ("WHERE key > last key of the page before ORDER BY key LIMIT n"), never by OFFSET, so a page
// deep in a 10M-row table costs as much as the first. It holds one page of values and one key
// per page seen.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

namespace quilta::data {

class SqliteDatabase;
class PgDatabase;

// A query read in key order, a page at a time.
class KeysetQuery {
 public:
  virtual ~KeysetQuery() = default;
  virtual const std::vector<std::string>& FieldNames() = 0;
  virtual int32_t KeyField() const = 0;
  // Up to `limit` rows whose key follows `afterKey` (Empty: from the first row), their values
  // row by row into `values`; returns the number of rows.
  virtual int32_t Page(const Variant& afterKey, int32_t limit, std::vector<Variant>& values) = 0;

  // `select` is any query that returns the key column; `keyColumn` names a column of it whose
  // values are unique and ordered (an indexed primary key, typically).
  static std::shared_ptr<KeysetQuery> OverSqlite(SqliteDatabase& db, std::string_view select,
                                                 std::string_view keyColumn);
  static std::shared_ptr<KeysetQuery> OverPostgres(PgDatabase& db, std::string_view select,
                                                   std::string_view keyColumn);
};

class VirtualRowSource {
 public:
  VirtualRowSource(Quilta& grid, std::shared_ptr<KeysetQuery> query, int32_t pageRows = 1000);

  // Gives an empty grid one column per field (keyed and headed by the field name) and switches
  // it to virtual mode. Fields fill the columns in order.
  void Attach();
  // What a host's event sink forwards from the grid's events of the same names.
  void RequestRow(int32_t lRow, bool& bNoMoreRows);
  void RequestRowData(int32_t lRow);

  int32_t PagesRead() const { return pagesRead_; }
  size_t ValuesHeld() const { return values_.capacity(); }

 private:
  // Makes page p current; false when the query has no such page.
  bool Load(int32_t page);
  bool Read(int32_t page);

  Quilta& grid_;
  std::shared_ptr<KeysetQuery> query_;
  int32_t pageRows_;
  int32_t fields_;
  std::vector<Variant> startKeys_;  // the key before each page seen; Empty before the first
  bool lastPageSeen_ = false;
  int32_t current_ = -1;
  int32_t rows_ = 0;
  std::vector<Variant> values_;
  int32_t pagesRead_ = 0;
};

}  // namespace quilta::data
