#include <algorithm>
#include <cctype>
#include <functional>
#include <quilta/data/postgres.hpp>
#include <quilta/data/sqlite.hpp>
#include <quilta/data/virtual_source.hpp>

namespace quilta::data {
namespace {

std::string Quoted(std::string_view identifier) {
  std::string out = "\"";
  for (char c : identifier) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

// Both databases read the same SQL; only the parameter markers differ.
class RecordsetKeyset final : public KeysetQuery {
 public:
  using Runner =
      std::function<std::shared_ptr<Recordset>(const std::string&, const std::vector<Variant>&)>;

  RecordsetKeyset(Runner run, std::string_view select, std::string_view keyColumn, bool dollar)
      : run_(std::move(run)) {
    std::string from = "SELECT * FROM (" + std::string(select) + ") AS quilta_keyset";
    std::string key = "quilta_keyset." + Quoted(keyColumn);
    std::string p1 = dollar ? "$1" : "?1", p2 = dollar ? "$2" : "?2";
    first_ = from + " ORDER BY " + key + " LIMIT " + p1;
    after_ = from + " WHERE " + key + " > " + p1 + " ORDER BY " + key + " LIMIT " + p2;
    std::shared_ptr<Recordset> probe = run_(first_, {Variant(0)});
    for (int32_t i = 0; i < probe->FieldCount(); ++i) names_.push_back(probe->Field(i).name);
    auto it = std::find_if(names_.begin(), names_.end(),
                           [&](const std::string& n) { return SameName(n, keyColumn); });
    if (it == names_.end()) throw Error::FromCode(quErrSubscriptOutOfRange);
    keyField_ = static_cast<int32_t>(it - names_.begin());
  }

  const std::vector<std::string>& FieldNames() override { return names_; }
  int32_t KeyField() const override { return keyField_; }

  int32_t Page(const Variant& afterKey, int32_t limit, std::vector<Variant>& values) override {
    std::shared_ptr<Recordset> rs = afterKey.IsEmpty() ? run_(first_, {Variant(limit)})
                                                       : run_(after_, {afterKey, Variant(limit)});
    values.clear();
    int32_t rows = 0;
    for (; !rs->IsEOF(); rs->MoveNext(), ++rows)
      for (int32_t f = 0; f < rs->FieldCount(); ++f) values.push_back(rs->Value(f));
    return rows;
  }

 private:
  Runner run_;
  std::string first_, after_;
  std::vector<std::string> names_;
  int32_t keyField_ = 0;
};

}  // namespace

std::shared_ptr<KeysetQuery> KeysetQuery::OverSqlite(SqliteDatabase& db, std::string_view select,
                                                     std::string_view keyColumn) {
  auto run = [&db](const std::string& sql, const std::vector<Variant>& params) {
    return db.Query(sql, params);
  };
  return std::make_shared<RecordsetKeyset>(run, select, keyColumn, false);
}

std::shared_ptr<KeysetQuery> KeysetQuery::OverPostgres(PgDatabase& db, std::string_view select,
                                                       std::string_view keyColumn) {
  auto run = [&db](const std::string& sql, const std::vector<Variant>& params) {
    return db.Query(sql, params);
  };
  return std::make_shared<RecordsetKeyset>(run, select, keyColumn, true);
}

VirtualRowSource::VirtualRowSource(Quilta& grid, std::shared_ptr<KeysetQuery> query,
                                   int32_t pageRows)
    : grid_(grid),
      query_(std::move(query)),
      pageRows_(std::max(pageRows, 1)),
      fields_(static_cast<int32_t>(query_->FieldNames().size())),
      startKeys_(1) {}

void VirtualRowSource::Attach() {
  if (grid_.ColCount() == 0) {
    for (const std::string& name : query_->FieldNames()) {
      try {
        grid_.AddCol({.sKey = name, .sHeader = name});
      } catch (const Error&) {
        grid_.AddCol({.sHeader = name});  // a second field of the same name goes without a key
      }
    }
  }
  grid_.SetVirtual(true);
}

bool VirtualRowSource::Read(int32_t page) {
  rows_ = query_->Page(startKeys_[static_cast<size_t>(page)], pageRows_, values_);
  current_ = page;
  ++pagesRead_;
  if (rows_ < pageRows_) {
    lastPageSeen_ = true;
  } else if (startKeys_.size() == static_cast<size_t>(page) + 1) {
    size_t last = static_cast<size_t>(rows_ - 1) * static_cast<size_t>(fields_);
    startKeys_.push_back(values_[last + static_cast<size_t>(query_->KeyField())]);
  }
  return rows_ > 0;
}

bool VirtualRowSource::Load(int32_t page) {
  if (page == current_) return rows_ > 0;
  // Pages are found by walking forward from the last one whose first key is known.
  while (static_cast<size_t>(page) >= startKeys_.size()) {
    if (lastPageSeen_) return false;
    if (!Read(static_cast<int32_t>(startKeys_.size()) - 1)) return false;
  }
  return Read(page);
}

void VirtualRowSource::RequestRow(int32_t lRow, bool& bNoMoreRows) {
  int32_t page = (lRow - 1) / pageRows_;
  bNoMoreRows = !Load(page) || (lRow - 1) % pageRows_ >= rows_;
}

void VirtualRowSource::RequestRowData(int32_t lRow) {
  int32_t page = (lRow - 1) / pageRows_;
  int32_t offset = (lRow - 1) % pageRows_;
  if (!Load(page) || offset >= rows_) return;
  int32_t cols = std::min(fields_, grid_.ColCount());
  const Variant* row = &values_[static_cast<size_t>(offset) * static_cast<size_t>(fields_)];
  for (int32_t f = 0; f < cols; ++f) grid_.SetCellValue(lRow, f + 1, row[f]);
}

}  // namespace quilta::data
