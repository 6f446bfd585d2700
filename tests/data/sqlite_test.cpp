// The SQLite record set: types, names, movement, errors, and FillFromRS over it.
#include <quilta/data/sqlite.hpp>

#include "data_support.hpp"

namespace quilta {
namespace {

using data::SqliteDatabase;
using testing::ErrorCode;

class SqliteRecordset : public ::testing::Test {
 protected:
  void SetUp() override {
    db.Execute(
        "CREATE TABLE people(id INTEGER PRIMARY KEY, name TEXT, born DATE, seen TIMESTAMP, "
        "active BOOLEAN, score REAL, big INTEGER, price NUMERIC, note BLOB);"
        "INSERT INTO people VALUES(1, 'Ann', '1990-05-17', '2024-02-29 13:45:00', 1, 2.5, "
        "5000000000, '12.25', NULL);"
        "INSERT INTO people VALUES(2, 'Bo', NULL, '2024-01-01T06:00:00', 0, NULL, 7, 3, 'x');"
        "INSERT INTO people VALUES(3, 'Cy', '1899-12-30', NULL, 'true', -1, 8, NULL, NULL);");
  }
  testing::TempDir dir;
  SqliteDatabase db{dir.File("people.db")};
};

TEST_F(SqliteRecordset, ValuesComeAsTheVariantTypesOfTheirDeclaredTypes) {
  auto rs = db.Query("SELECT * FROM people ORDER BY id");
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(rs->Value(0), Variant(1));
  EXPECT_EQ(rs->Value(1), Variant("Ann"));
  EXPECT_EQ(rs->Value(2).Type(), vbDate);
  EXPECT_EQ(Format(rs->Value(2), "yyyy-mm-dd"), "1990-05-17");
  EXPECT_EQ(Format(rs->Value(3), "yyyy-mm-dd hh:nn"), "2024-02-29 13:45");
  EXPECT_EQ(rs->Value(4), Variant(true));
  EXPECT_EQ(rs->Value(5), Variant(2.5));
  EXPECT_EQ(rs->Value(6), Variant(int64_t{5000000000}));
  EXPECT_EQ(rs->Value(7), Variant(12.25));
  EXPECT_TRUE(rs->Value(8).IsNull());
  rs->MoveNext();
  EXPECT_TRUE(rs->Value(2).IsNull());
  EXPECT_EQ(rs->Value(3), Variant::Date(45292.25));
  EXPECT_EQ(rs->Value(4), Variant(false));
  rs->MoveNext();
  EXPECT_EQ(rs->Value(2), Variant::Date(0));
  EXPECT_EQ(rs->Value(4), Variant(true));
}

TEST_F(SqliteRecordset, MovesThroughTheRecordsAndReportsTheEnds) {
  auto rs = db.Query("SELECT id FROM people WHERE id >= ?1 ORDER BY id", {Variant(2)});
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->MoveLast();
  EXPECT_EQ(rs->Value(0), Variant(3));
  rs->MoveNext();
  EXPECT_TRUE(rs->IsEOF());
  EXPECT_EQ(ErrorCode([&] { rs->Value(0); }), 3021);
  EXPECT_EQ(ErrorCode([&] { rs->MoveNext(); }), 3021);
  rs->MoveFirst();
  EXPECT_EQ(rs->Value(0), Variant(2));
  auto empty = db.Query("SELECT id FROM people WHERE id > 99");
  EXPECT_TRUE(empty->IsEOF());
  EXPECT_EQ(empty->RecordCount(), 0);
}

TEST_F(SqliteRecordset, LateBoundMembersAnswerAsAnAdoRecordset) {
  std::shared_ptr<Dispatch> rs = db.Query("SELECT name AS who, id FROM people ORDER BY id");
  EXPECT_EQ(rs->TypeName(), "Recordset");
  auto fields = AsDispatch(rs->Get("Fields"));
  EXPECT_EQ(fields->Get("Count"), Variant(2));
  auto who = AsDispatch(rs->Get("Fields", Variant(0)));
  EXPECT_EQ(who->Get("Name"), Variant("who"));
  EXPECT_EQ(AsDispatch(who->Get("Properties", Variant("BASECOLUMNNAME")))->Get("Value"),
            Variant("name"));
  EXPECT_EQ(AsDispatch(who->Get("Properties", Variant("BASETABLENAME")))->Get("Value"),
            Variant("people"));
  EXPECT_EQ(AsDispatch(rs->Get("Fields", Variant("ID")))->Get("Value"), Variant(1));
  EXPECT_EQ(ErrorCode([&] { rs->Get("Nope"); }), 438);
  // A field kept after its record set has gone still answers.
  rs.reset();
  EXPECT_EQ(who->Get("Value"), Variant("Ann"));
}

TEST_F(SqliteRecordset, DatabaseErrorsCarryTheDriversMessage) {
  std::string message;
  EXPECT_NE(ErrorCode([&] { db.Query("SELECT * FROM missing"); }, &message), 0);
  EXPECT_NE(message.find("no such table: missing"), std::string::npos) << message;
  EXPECT_NE(ErrorCode([&] { db.Execute("INSERT INTO people(id) VALUES(1)"); }, &message), 0);
  EXPECT_NE(message.find("UNIQUE"), std::string::npos) << message;
  EXPECT_NE(ErrorCode([&] { SqliteDatabase bad(dir.File("no/such/dir.db")); }), 0);
}

TEST_F(SqliteRecordset, FillsAGridWithKeysAndBaseNames) {
  Quilta grid;
  grid.FillFromRS(db.Query("SELECT id, name AS who, born FROM people ORDER BY id"),
                  quFillRSColsIfEmptyAndRows, "id");
  ASSERT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.CellValue("2", "who"), Variant("Bo"));
  EXPECT_EQ(grid.CellText("1", "born"), grid.CellText(1, 3));
  EXPECT_EQ(grid.ColDataField("who"), "name");
  EXPECT_EQ(grid.ColDataTable("who"), "people");
  // A join repeating a key: the grid is left as it was.
  Quilta before;
  EXPECT_EQ(ErrorCode([&] {
              grid.FillFromRS(db.Query("SELECT 1 AS id UNION ALL SELECT 1"),
                              quFillRSColsIfEmptyAndRows, "id");
            }),
            quErrDuplicateKey);
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.CellValue(3, "who"), Variant("Cy"));
}

// Forwards the late-bound members only, hiding the record set's batch face.
class LateBoundOnly : public Dispatch {
 public:
  explicit LateBoundOnly(std::shared_ptr<Dispatch> inner) : inner_(std::move(inner)) {}
  std::string TypeName() const override { return inner_->TypeName(); }
  Variant Invoke(std::string_view member, InvokeKind kind, std::span<const Variant> args) override {
    return inner_->Invoke(member, kind, args);
  }

 private:
  std::shared_ptr<Dispatch> inner_;
};

// Large fills read the record set a batch at a time; what lands in the grid, and where the record
// set stands afterwards, must be what the late-bound reading gives.
TEST_F(SqliteRecordset, BatchedAndLateBoundFillsAgree) {
  db.Execute(
      "CREATE TABLE many(k TEXT, n INTEGER, r REAL, d DATE);"
      "WITH RECURSIVE g(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM g WHERE i < 600) "
      "INSERT INTO many SELECT 'k' || i, CASE WHEN i % 7 THEN i END, i / 4.0, '2024-01-01' FROM "
      "g;");
  const char* query = "SELECT * FROM many ORDER BY rowid";
  Quilta batched, lateBound;
  auto direct = db.Query(query);
  batched.FillFromRS(direct, quFillRSColsIfEmptyAndRows, "k");
  auto wrapped = db.Query(query);
  lateBound.FillFromRS(std::make_shared<LateBoundOnly>(wrapped), quFillRSColsIfEmptyAndRows, "k");
  ASSERT_EQ(batched.RowCount(), 600);
  ASSERT_EQ(lateBound.RowCount(), 600);
  for (int32_t r = 1; r <= 600; ++r) {
    EXPECT_EQ(batched.RowKey(r), lateBound.RowKey(r));
    for (int32_t c = 1; c <= 4; ++c) ASSERT_EQ(batched.CellValue(r, c), lateBound.CellValue(r, c));
  }
  EXPECT_EQ(batched.RowKey(600), "k600");
  EXPECT_EQ(direct->Get("EOF"), Variant(true));
  EXPECT_EQ(wrapped->Get("EOF"), Variant(true));
}

// A database error part-way through the records leaves the grid as it was, either way read.
TEST_F(SqliteRecordset, AnErrorPartWayLeavesTheGridAsItWas) {
  const char* failsAt300 =
      "WITH RECURSIVE g(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM g WHERE i < 500) "
      "SELECT i, CASE WHEN i = 300 THEN abs(-9223372036854775807 - 1) ELSE i END AS v FROM g";
  for (bool hideBatches : {false, true}) {
    Quilta grid;
    grid.FillFromRS(db.Query("SELECT id, name FROM people"));
    std::shared_ptr<Dispatch> rs = db.Query(failsAt300);
    if (hideBatches) rs = std::make_shared<LateBoundOnly>(rs);
    EXPECT_NE(ErrorCode([&] { grid.FillFromRS(rs, quFillRSColsIfEmptyAndRows); }), 0);
    EXPECT_EQ(grid.RowCount(), 3);
    EXPECT_EQ(grid.ColCount(), 2);
    EXPECT_EQ(grid.CellValue(2, 2), Variant("Bo"));
  }
}

TEST_F(SqliteRecordset, InMemoryDatabasesWork) {
  SqliteDatabase memory(":memory:");
  memory.Execute("CREATE TABLE t(v); INSERT INTO t VALUES(1),(2.5),('x'),(NULL);");
  Quilta grid;
  grid.FillFromRS(memory.Query("SELECT v FROM t"));
  EXPECT_EQ(grid.RowCount(), 4);
  EXPECT_EQ(grid.CellValue(2, 1), Variant(2.5));
  EXPECT_EQ(grid.CellValue(3, 1), Variant("x"));
  EXPECT_TRUE(grid.CellValue(4, 1).IsNull());
}

}  // namespace
}  // namespace quilta
