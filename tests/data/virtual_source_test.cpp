// Virtual mode from a query: rows arrive page by page in key order, however far the grid goes.
#include <quilta/data/postgres.hpp>
#include <quilta/data/sqlite.hpp>
#include <quilta/data/virtual_source.hpp>

#include "data_support.hpp"

namespace quilta {
namespace {

// Keys with gaps, so a page's rows are found by key and not by position.
void FillNumbers(data::SqliteDatabase& db, int rows) {
  db.Execute("CREATE TABLE n(id INTEGER PRIMARY KEY, label TEXT)");
  db.Execute("BEGIN");
  for (int i = 1; i <= rows; ++i)
    db.Execute("INSERT INTO n VALUES(" + std::to_string(i * 3) + ", 'r" + std::to_string(i) + "')");
  db.Execute("COMMIT");
}

// Asks for rows the way the grid's virtual mode does: RequestRow, then a row added with the
// defaults and RequestRowData for it, until the source has no more.
void ExpectPaging(Quilta& grid, data::VirtualRowSource& source, int rows) {
  source.Attach();
  EXPECT_TRUE(grid.Virtual());
  EXPECT_EQ(grid.ColCount(), 2);
  EXPECT_EQ(grid.ColKey(2), "label");
  for (int32_t r = grid.RowCount() + 1;; ++r) {
    bool noMoreRows = false;
    source.RequestRow(r, noMoreRows);
    if (noMoreRows) break;
    grid.AddRow();
    source.RequestRowData(r);
  }
  ASSERT_EQ(grid.RowCount(), rows);
  for (int r : {1, 7, 8, 9, rows})
    EXPECT_EQ(grid.CellValue(r, "label"), Variant("r" + std::to_string(r))) << r;
  EXPECT_EQ(grid.CellValue(rows, "id"), Variant(rows * 3));
  // Each page read once, and one more read that finds the end when the last page was full.
  EXPECT_EQ(source.PagesRead(), (rows + 7) / 8 + (rows % 8 == 0));
  EXPECT_LE(source.ValuesHeld(), 16u);  // one page of values, whatever the table's size
  // A row seen before is read again by its page's key.
  source.RequestRowData(2);
  EXPECT_EQ(grid.CellValue(2, "label"), Variant("r2"));
}

TEST(VirtualRowSource, SqlitePagesByKey) {
  testing::TempDir dir;
  data::SqliteDatabase db(dir.File("n.db"));
  FillNumbers(db, 21);
  Quilta grid;
  data::VirtualRowSource source(grid, data::KeysetQuery::OverSqlite(db, "SELECT * FROM n", "id"),
                                8);
  ExpectPaging(grid, source, 21);
}

TEST(VirtualRowSource, PostgresPagesByKey) {
  ASSERT_FALSE(testing::PgConnInfo().empty()) << "QUILTA_PG_CONNINFO is not set";
  data::PgDatabase db(testing::PgConnInfo());
  db.Execute(
      "DROP TABLE IF EXISTS n; CREATE TABLE n(id integer PRIMARY KEY, label text);"
      "INSERT INTO n SELECT g * 3, 'r' || g FROM generate_series(1, 24) g;");
  Quilta grid;
  data::VirtualRowSource source(grid, data::KeysetQuery::OverPostgres(db, "SELECT * FROM n", "id"),
                                8);
  ExpectPaging(grid, source, 24);
}

TEST(VirtualRowSource, AnUnknownKeyColumnIsRefused) {
  data::SqliteDatabase db(":memory:");
  FillNumbers(db, 2);
  EXPECT_EQ(testing::ErrorCode(
                [&] { data::KeysetQuery::OverSqlite(db, "SELECT * FROM n", "nope"); }) != 0,
            true);
}

}  // namespace
}  // namespace quilta
