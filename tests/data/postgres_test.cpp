// The PostgreSQL record set against the local server the test script starts.
#include <quilta/data/postgres.hpp>

#include "data_support.hpp"

namespace quilta {
namespace {

using testing::ErrorCode;

class PostgresRecordset : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(testing::PgConnInfo().empty())
        << "QUILTA_PG_CONNINFO is not set: run the tests through scripts/test.sh";
    db = std::make_unique<data::PgDatabase>(testing::PgConnInfo());
    schema = std::make_unique<testing::PgSchema<data::PgDatabase>>(*db);
    db->Execute(
        "CREATE TABLE people(id integer PRIMARY KEY, name text, born date, seen timestamp, "
        "active boolean, score double precision, big bigint, price numeric(10,2), small smallint,"
        " ratio real, label varchar(10));"
        "INSERT INTO people VALUES (1, 'Ann', '1990-05-17', '2024-02-29 13:45:00', true, 2.5, "
        "5000000000, 12.25, 7, 0.5, 'a'), (2, 'Bo', NULL, NULL, false, NULL, 1, NULL, NULL, NULL, "
        "NULL), (3, 'Cy', '1899-12-30', '1899-12-30 06:00:00', NULL, -1, 2, 3, 1, 1, 'c');");
  }
  std::unique_ptr<data::PgDatabase> db;
  std::unique_ptr<testing::PgSchema<data::PgDatabase>> schema;
};

TEST_F(PostgresRecordset, SqlTypesBecomeVariantTypes) {
  auto rs = db->Query("SELECT * FROM people ORDER BY id");
  ASSERT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(rs->Value(0), Variant(1));
  EXPECT_EQ(rs->Value(1), Variant("Ann"));
  EXPECT_EQ(Format(rs->Value(2), "yyyy-mm-dd"), "1990-05-17");
  EXPECT_EQ(rs->Value(3).Type(), vbDate);
  EXPECT_EQ(Format(rs->Value(3), "yyyy-mm-dd hh:nn"), "2024-02-29 13:45");
  EXPECT_EQ(rs->Value(4), Variant(true));
  EXPECT_EQ(rs->Value(5), Variant(2.5));
  EXPECT_EQ(rs->Value(6), Variant(int64_t{5000000000}));
  EXPECT_EQ(rs->Value(7), Variant(12.25));
  EXPECT_EQ(rs->Value(8), Variant(int16_t{7}));
  EXPECT_EQ(rs->Value(9), Variant(0.5f));
  EXPECT_EQ(rs->Value(10), Variant("a"));
  rs->MoveNext();
  for (int f : {2, 3, 5, 7, 8, 9, 10}) EXPECT_TRUE(rs->Value(f).IsNull()) << f;
  rs->MoveNext();
  EXPECT_EQ(rs->Value(2), Variant::Date(0));
  EXPECT_EQ(rs->Value(3), Variant::Date(0.25));
  EXPECT_TRUE(rs->Value(4).IsNull());
}

TEST_F(PostgresRecordset, ReadsPastOneBatchAndStartsOver) {
  db->Execute(
      "DROP TABLE IF EXISTS many; CREATE TABLE many AS SELECT g AS id FROM "
      "generate_series(1, 10000) g;");
  auto rs = db->Query("SELECT id FROM many WHERE id > $1 ORDER BY id", {Variant(10)});
  EXPECT_EQ(rs->RecordCount(), 9990);
  int64_t sum = 0, n = 0;
  for (; !rs->IsEOF(); rs->MoveNext(), ++n) sum += CLng(rs->Value(0));
  EXPECT_EQ(n, 9990);
  EXPECT_EQ(sum, 10000LL * 10001 / 2 - 55);
  rs->MoveFirst();
  EXPECT_EQ(rs->Value(0), Variant(11));
  rs->MoveLast();
  EXPECT_EQ(rs->Value(0), Variant(10000));
}

TEST_F(PostgresRecordset, FillsAGridWithBaseNamesFromTheServer) {
  Quilta grid;
  grid.FillFromRS(db->Query("SELECT p.id, p.name AS who FROM people p ORDER BY id"),
                  quFillRSColsIfEmptyAndRows, "who");
  ASSERT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.RowIndex("Cy"), 3);
  EXPECT_EQ(grid.ColDataField("who"), "name");
  EXPECT_EQ(grid.ColDataTable("who"), "people");
  EXPECT_EQ(grid.ColDataField("id"), "id");
}

TEST_F(PostgresRecordset, ServerErrorsCarryTheDriversMessageAndLeaveTheGrid) {
  std::string message;
  EXPECT_NE(ErrorCode([&] { db->Query("SELECT * FROM missing_table"); }, &message), 0);
  EXPECT_NE(message.find("missing_table"), std::string::npos) << message;
  // The connection stays usable after a failed query.
  EXPECT_EQ(db->Query("SELECT 1")->RecordCount(), 1);
  Quilta grid;
  grid.AddCol();
  grid.AddRow();
  grid.SetCellValue(1, 1, "kept");
  EXPECT_NE(ErrorCode([&] { grid.FillFromRS(db->Query("SELECT 1/0 AS x")); }, &message), 0);
  EXPECT_EQ(grid.CellValue(1, 1), Variant("kept"));
  EXPECT_NE(
      ErrorCode([&] { data::PgDatabase bad("host=127.0.0.1 port=1 connect_timeout=2"); }, &message),
      0);
  EXPECT_FALSE(message.empty());
}

}  // namespace
}  // namespace quilta
