// FillFromRS over an in-memory record set reached only by member names, as ADO and DAO are.
#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>

namespace quilta {
namespace {

struct Table {
  std::vector<std::string> names;
  std::vector<std::vector<Variant>> rows;
};

// One object answers for the record set, its Fields collection, each field and each property.
class MemoryRecordset : public Dispatch, public std::enable_shared_from_this<MemoryRecordset> {
 public:
  MemoryRecordset(Table t, std::string type) : table_(std::move(t)), type_(std::move(type)) {}
  std::string TypeName() const override { return type_; }
  Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) override {
    ++calls[std::string(member)];
    if (member == "Fields" && args.empty()) return Child(-1, "");
    if (member == "Fields") return Child(CLng(args[0]), "");
    if (member == "RecordCount")
      return dao ? std::min(visited_, Count()) : recordCount.value_or(Count());
    if (member == "CursorType") return cursorType;
    if (member == "MoveFirst") return pos_ = 0, visited_ = std::max(visited_, 1), Variant();
    if (member == "MoveLast") return pos_ = Count() - 1, visited_ = Count(), Variant();
    if (member == "MoveNext") return ++pos_, visited_ = std::max(visited_, pos_ + 1), Variant();
    throw UnknownMember(type_);
  }
  int32_t Count() const { return static_cast<int32_t>(table_.rows.size()); }

  std::map<std::string, int> calls;
  std::optional<int32_t> recordCount;
  int32_t cursorType = 3;
  bool dao = false;
  int32_t failAtRecord = -1;

 private:
  class Child : public Dispatch {
   public:
    Child(std::shared_ptr<MemoryRecordset> rs, int32_t field, std::string property)
        : rs_(std::move(rs)), field_(field), property_(std::move(property)) {}
    std::string TypeName() const override { return "Field"; }
    Variant Invoke(std::string_view member, InvokeKind, std::span<const Variant> args) override {
      MemoryRecordset& rs = *rs_;
      if (field_ < 0 && member == "Count") return static_cast<int32_t>(rs.table_.names.size());
      if (!property_.empty() && member == "Value") {
        const std::string& name = rs.table_.names[static_cast<size_t>(field_)];
        return property_ == "BASECOLUMNNAME" || property_ == "SourceField" ? name + "_base"
                                                                           : std::string("t");
      }
      if (member == "Name") return rs.table_.names[static_cast<size_t>(field_)];
      if (member == "Properties") {
        return DispatchVariant(std::make_shared<Child>(rs_, field_, CStr(args[0])));
      }
      if (member == "Value") {
        if (rs.pos_ == rs.failAtRecord) throw Error(7, 7, "driver: connection lost", "db");
        return rs.table_.rows.at(static_cast<size_t>(rs.pos_)).at(static_cast<size_t>(field_));
      }
      throw UnknownMember("Field");
    }

   private:
    std::shared_ptr<MemoryRecordset> rs_;
    int32_t field_;
    std::string property_;
  };
  Variant Child(int32_t field, std::string property) {
    return DispatchVariant(std::make_shared<class Child>(shared_from_this(), field, property));
  }

  Table table_;
  std::string type_;
  int32_t pos_ = 0;
  int32_t visited_ = 1;  // an open DAO record set stands on its first record
};

Table People() {
  return {{"id", "name", "born"},
          {{1, "Ann", Variant::Date(30000)},
           {2, "Bo", Variant::Null()},
           {3, "Cy", Variant::Date(31000)}}};
}

std::shared_ptr<MemoryRecordset> Ado(Table t = People()) {
  return std::make_shared<MemoryRecordset>(std::move(t), "Recordset");
}

struct Snapshot {
  int32_t rows, cols;
  std::vector<Variant> cells;
  std::vector<std::string> keys;
  static Snapshot Of(const Quilta& g) {
    Snapshot s{g.RowCount(), g.ColCount(), {}, {}};
    for (int32_t r = 1; r <= g.RowCount(); ++r) {
      s.keys.push_back(g.RowKey(r));
      for (int32_t c = 1; c <= g.ColCount(); ++c) s.cells.push_back(g.CellValue(r, c));
    }
    return s;
  }
  bool operator==(const Snapshot&) const = default;
};

int32_t ErrorCode(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e.Code();
  }
  return 0;
}

TEST(FillFromRS, EmptyGridGetsOneColumnPerFieldAndOneRowPerRecord) {
  Quilta grid;
  grid.FillFromRS(Ado());
  ASSERT_EQ(grid.ColCount(), 3);
  ASSERT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.ColKey(2), "name");
  EXPECT_EQ(grid.CellValue(1, "name"), Variant("Ann"));
  EXPECT_TRUE(grid.CellValue(2, "born").IsNull());
  EXPECT_EQ(grid.CellValue(3, "born"), Variant::Date(31000));
  EXPECT_EQ(grid.ColDataField("born"), "born_base");
  EXPECT_EQ(grid.ColDataTable("born"), "t");
}

TEST(FillFromRS, ModesRecreateReplaceOrAppend) {
  Quilta grid;
  grid.FillFromRS(Ado(), quFillRSRecreateColsOnly);
  EXPECT_EQ(grid.ColCount(), 3);
  EXPECT_EQ(grid.RowCount(), 0);
  grid.FillFromRS(Ado());
  grid.FillFromRS(Ado());  // rows are replaced
  EXPECT_EQ(grid.RowCount(), 3);
  grid.FillFromRS(Ado(), quFillRSAddToExistingRows);
  EXPECT_EQ(grid.RowCount(), 6);
  EXPECT_EQ(grid.CellValue(4, "id"), Variant(1));
  EXPECT_EQ(grid.ColCount(), 3);
}

TEST(FillFromRS, FieldsFillColumnsByKeyOrElseInOrder) {
  Quilta keyed;
  keyed.AddCol({.sKey = "NAME"});
  keyed.AddCol({.sKey = "other"});
  keyed.FillFromRS(Ado());
  EXPECT_EQ(keyed.ColCount(), 2);
  EXPECT_EQ(keyed.CellValue(3, "name"), Variant("Cy"));
  EXPECT_TRUE(keyed.CellValue(3, "other").IsEmpty());
  Quilta plain;
  plain.AddCol({.lCount = 2});
  plain.FillFromRS(Ado());
  EXPECT_EQ(plain.CellValue(2, 1), Variant(2));
  EXPECT_EQ(plain.CellValue(2, 2), Variant("Bo"));
}

TEST(FillFromRS, KeyFieldValuesBecomeRowKeys) {
  Quilta grid;
  grid.FillFromRS(Ado(), quFillRSColsIfEmptyAndRows, "NAME");
  EXPECT_EQ(grid.RowIndex("Bo"), 2);
  Quilta byOrdinal;
  byOrdinal.FillFromRS(Ado(), quFillRSColsIfEmptyAndRows, 0);
  EXPECT_EQ(byOrdinal.RowIndex("3"), 3);
}

TEST(FillFromRS, DaoRecordSetsAreCountedByMovingToTheLastRecord) {
  auto rs = std::make_shared<MemoryRecordset>(People(), "Recordset2x");
  rs->dao = true;
  Quilta grid;
  grid.FillFromRS(rs);
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(rs->calls["MoveLast"], 1);
  EXPECT_EQ(grid.ColDataField("id"), "id_base");
}

TEST(FillFromRS, ForwardOnlyCursorsAreNotRewound) {
  auto rs = Ado();
  rs->cursorType = 0;
  Quilta grid;
  grid.FillFromRS(rs);
  EXPECT_EQ(rs->calls["MoveFirst"], 0);
  EXPECT_EQ(grid.RowCount(), 3);
}

TEST(FillFromRS, FailuresLeaveTheGridAsItWas) {
  Quilta grid;
  grid.FillFromRS(Ado(), quFillRSColsIfEmptyAndRows, "id");
  grid.SetCellValue(1, 2, "edited");
  Snapshot before = Snapshot::Of(grid);

  Table dup = People();
  dup.rows[2][1] = "Ann";
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(Ado(dup), quFillRSColsIfEmptyAndRows, "name"); }),
            quErrDuplicateKey);
  // Appending keys the grid already has.
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(Ado(), quFillRSAddToExistingRows, "id"); }),
            quErrDuplicateKey);
  auto failing = Ado();
  failing->failAtRecord = 2;
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(failing); }), 7);  // the driver's error passes through
  auto uncounted = Ado();
  uncounted->recordCount = -1;
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(uncounted); }), quErrInvalidArgument);
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(nullptr); }), quErrInvalidArgument);
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(Ado(), static_cast<EFillFromRSMode>(3)); }),
            quErrInvalidArgument);
  EXPECT_EQ(ErrorCode([&] { grid.FillFromRS(Ado(), quFillRSColsIfEmptyAndRows, "missing"); }),
            quErrSubscriptOutOfRange);
  EXPECT_EQ(Snapshot::Of(grid), before);
}

}  // namespace
}  // namespace quilta
