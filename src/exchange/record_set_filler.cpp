#include "exchange/record_set_filler.hpp"

#include <algorithm>
#include <quilta/error.hpp>
#include <unordered_set>

namespace quilta::exchange {
namespace {

// ADO's CursorType for a cursor that can only move forward: it already stands on the first
// record and cannot go back there.
constexpr int32_t kForwardOnly = 0;

[[noreturn]] void Unusable() { throw Error::FromCode(quErrInvalidArgument); }

std::shared_ptr<Dispatch> ObjectOf(const Variant& v) {
  std::shared_ptr<Dispatch> object = AsDispatch(v);
  if (!object) Unusable();
  return object;
}

int32_t LongOf(const Variant& v) {
  if (!v.IsNumber()) Unusable();
  return CLng(v);
}

std::string TextOf(const Variant& v) {
  if (v.IsNull() || v.IsEmpty()) return {};
  if (v.IsObject() || v.IsArray() || v.Type() == vbError) Unusable();
  return CStr(v);
}

// A field property the provider may not have: its absence is no error, only an unknown name.
std::string FieldProperty(Dispatch& field, const char* name) {
  try {
    std::shared_ptr<Dispatch> property = AsDispatch(field.Get("Properties", Variant(name)));
    return property ? TextOf(property->Get("Value")) : std::string();
  } catch (const Error&) {
    return {};
  }
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

void StoreValue(model::CellColumn& column, model::Cell& cell, Variant&& value) {
  cell.value = std::move(value);
  column.NoteRefs(cell);
  cell.state |= model::Cell::kRemeasure;
}

class UpdateBlock {
 public:
  explicit UpdateBlock(ExchangeSite& site) : site_(site) { site_.BeginUpdate(); }
  ~UpdateBlock() { site_.EndUpdate(); }
  UpdateBlock(const UpdateBlock&) = delete;
  UpdateBlock& operator=(const UpdateBlock&) = delete;

 private:
  ExchangeSite& site_;
};

}  // namespace

std::vector<RecordSetField> RecordSetFiller::ReadFields(Dispatch& rs) const {
  std::shared_ptr<Dispatch> fields = ObjectOf(rs.Get("Fields"));
  int32_t count = LongOf(fields->Get("Count"));
  if (count < 0) Unusable();
  bool ado = rs.TypeName() == "Recordset" || rs.TypeName() == "Recordset2";
  std::vector<RecordSetField> out;
  for (int32_t i = 0; i < count; ++i) {
    RecordSetField f;
    f.object = ObjectOf(rs.Get("Fields", Variant(i)));
    f.name = TextOf(f.object->Get("Name"));
    f.baseColumn = FieldProperty(*f.object, ado ? "BASECOLUMNNAME" : "SourceField");
    f.baseTable = FieldProperty(*f.object, ado ? "BASETABLENAME" : "SourceTable");
    out.push_back(std::move(f));
  }
  return out;
}

// The key field is named (case-insensitively) or given by its 0-based ordinal; -1 for none.
int32_t RecordSetFiller::KeyFieldOf(const std::vector<RecordSetField>& fields,
                                    const Variant& vRowKeyField) const {
  if (vRowKeyField.IsMissing()) return -1;
  if (vRowKeyField.IsNumber()) {
    int32_t ordinal = CLng(vRowKeyField);
    if (ordinal < 0 || ordinal >= static_cast<int32_t>(fields.size()))
      throw Error::FromCode(quErrSubscriptOutOfRange);
    return ordinal;
  }
  if (!vRowKeyField.IsString()) Unusable();
  for (size_t i = 0; i < fields.size(); ++i)
    if (SameName(fields[i].name, vRowKeyField.StringView())) return static_cast<int32_t>(i);
  throw Error::FromCode(quErrSubscriptOutOfRange);
}

int32_t RecordSetFiller::CountRecords(Dispatch& rs, bool ado) const {
  int32_t count = LongOf(rs.Get("RecordCount"));
  if (ado) {
    // A provider that cannot count its records (-1) cannot be read without EOF tests.
    if (count < 0) Unusable();
    if (count > 0 && LongOf(rs.Get("CursorType")) != kForwardOnly) rs.Call("MoveFirst");
  } else if (count > 0) {
    // DAO counts only the records visited so far.
    rs.Call("MoveLast");
    count = LongOf(rs.Get("RecordCount"));
    rs.Call("MoveFirst");
  }
  return std::max(count, 0);
}

// Records go straight into new rows after the existing ones; row keys wait until every record
// has been read and checked.
std::vector<std::string> RecordSetFiller::ReadRecords(Dispatch& rs,
                                                      const std::vector<RecordSetField>& fields,
                                                      const std::vector<int32_t>& target,
                                                      int32_t keyField, int32_t first,
                                                      int32_t count) {
  std::vector<std::string> keys;
  if (keyField >= 0) keys.reserve(static_cast<size_t>(count));
  std::vector<model::CellColumn*> columns;
  for (int32_t col : target) columns.push_back(col ? &store_.Cells().Column(col) : nullptr);
  for (int32_t k = 0; k < count; ++k) {
    for (size_t i = 0; i < fields.size(); ++i) {
      Variant value = fields[i].object->Get("Value");
      if (static_cast<int32_t>(i) == keyField) keys.push_back(TextOf(value));
      if (!columns[i]) continue;
      StoreValue(*columns[i], store_.MutableCell(first + k, target[i]), std::move(value));
    }
    rs.Call("MoveNext");
  }
  return keys;
}

// A batch at a time, each column's cells written in one run: the cells of a batch are still in
// the cache when their values arrive.
std::vector<std::string> RecordSetFiller::ReadBatches(RecordBatchReader& rs,
                                                      const std::vector<int32_t>& target,
                                                      int32_t keyField, int32_t first,
                                                      int32_t count) {
  constexpr int32_t kBatch = 256;
  const size_t fields = target.size();
  std::vector<std::string> keys;
  if (keyField >= 0) keys.reserve(static_cast<size_t>(count));
  std::vector<Variant> values(kBatch * fields);
  std::vector<int32_t> phys(kBatch);
  model::CellStore& cells = store_.Cells();
  for (int32_t done = 0; done < count; done += kBatch) {
    const int32_t n = std::min(kBatch, count - done);
    rs.ReadBatch(n, std::span<Variant>(values.data(), static_cast<size_t>(n) * fields));
    for (int32_t k = 0; k < n; ++k)
      phys[static_cast<size_t>(k)] = store_.Rows().At(first + done + k).phys;
    for (size_t i = 0; i < fields; ++i) {
      auto valueOf = [&](int32_t k) -> Variant& {
        return values[static_cast<size_t>(k) * fields + i];
      };
      if (static_cast<int32_t>(i) == keyField)
        for (int32_t k = 0; k < n; ++k) keys.push_back(TextOf(valueOf(k)));
      if (!target[i]) continue;
      model::CellColumn& column = cells.Column(target[i]);
      for (int32_t k = 0; k < n; ++k)
        StoreValue(column, cells.Mutable(target[i], phys[static_cast<size_t>(k)]),
                   std::move(valueOf(k)));
    }
  }
  return keys;
}

void RecordSetFiller::CheckKeys(const std::vector<std::string>& keys, int32_t oldRows,
                                bool keepRows) const {
  std::unordered_set<std::string_view> seen;
  for (const std::string& key : keys) {
    if (key.empty()) continue;
    bool taken = keepRows && store_.RowOfKey(key) && store_.RowOfKey(key) <= oldRows;
    if (!seen.insert(key).second || taken) throw Error::FromCode(quErrDuplicateKey);
  }
}

std::vector<int32_t> RecordSetFiller::MatchColumns(
    const std::vector<RecordSetField>& fields) const {
  const model::ColumnStore& cols = store_.Cols();
  std::vector<int32_t> target(fields.size(), 0);
  bool anyByName = false;
  for (size_t i = 0; i < fields.size(); ++i) {
    int32_t slot = fields[i].name.empty() ? 0 : cols.SlotOfKeyAnyCase(fields[i].name);
    if (slot >= 1 && slot <= cols.ColCount()) target[i] = cols.AtSlot(slot).index, anyByName = true;
  }
  // Columns with no keys matching the fields take the fields in order.
  if (!anyByName)
    for (size_t i = 0; i < fields.size() && static_cast<int32_t>(i) < cols.ColCount(); ++i)
      target[i] = static_cast<int32_t>(i) + 1;
  return target;
}

std::vector<int32_t> RecordSetFiller::CreateColumns(const std::vector<RecordSetField>& fields) {
  std::vector<int32_t> target;
  for (const RecordSetField& f : fields) {
    // Two fields of one name (a join) cannot both be keys: the later one goes without.
    bool keyFree = !f.name.empty() && store_.Cols().SlotOfKeyAnyCase(f.name) == 0;
    store_.AddCols({.sKey = keyFree ? f.name : std::string(), .sHeader = f.name});
    target.push_back(store_.ColCount());
  }
  return target;
}

void RecordSetFiller::NameColumns(const std::vector<RecordSetField>& fields,
                                  const std::vector<int32_t>& target) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (target[i] == 0) continue;
    model::Column& column = store_.Cols().AtIndex(target[i]);
    column.dataField = fields[i].baseColumn;
    column.dataTable = fields[i].baseTable;
  }
}

// Rows 1..count, a subtree at a time where a row holds nested ones.
void RecordSetFiller::RemoveLeadingRows(int32_t count) {
  while (count > 0) {
    int32_t before = store_.RowCount();
    store_.RemoveRows(Variant(1), count);
    count -= before - store_.RowCount();
  }
}

void RecordSetFiller::Fill(const std::shared_ptr<Dispatch>& rs, EFillFromRSMode mode,
                           const Variant& vRowKeyField) {
  if (!rs || mode < quFillRSRecreateColsOnly || mode > quFillRSAddToExistingRows) Unusable();
  bool ado = rs->TypeName() == "Recordset" || rs->TypeName() == "Recordset2";
  std::vector<RecordSetField> fields = ReadFields(*rs);
  int32_t keyField = KeyFieldOf(fields, vRowKeyField);
  int32_t count = mode == quFillRSRecreateColsOnly ? 0 : CountRecords(*rs, ado);
  UpdateBlock update(site_);
  site_.EndEditing();
  if (mode == quFillRSRecreateColsOnly) {
    store_.Clear(true);
    NameColumns(fields, CreateColumns(fields));
    return;
  }
  bool keepRows = mode == quFillRSAddToExistingRows;
  bool createCols = !keepRows && store_.ColCount() == 0;
  int32_t oldRows = store_.RowCount();
  std::vector<int32_t> target = createCols ? CreateColumns(fields) : MatchColumns(fields);
  int32_t first = oldRows + 1;
  std::vector<std::string> keys;
  try {
    if (count > 0) store_.AddRows({.lCount = count});
    auto* batches = dynamic_cast<RecordBatchReader*>(rs.get());
    keys = batches ? ReadBatches(*batches, target, keyField, first, count)
                   : ReadRecords(*rs, fields, target, keyField, first, count);
    CheckKeys(keys, oldRows, keepRows);
  } catch (...) {
    if (store_.RowCount() > oldRows) store_.RemoveRows(Variant(first), store_.RowCount() - oldRows);
    if (createCols && store_.ColCount() > 0) store_.RemoveCols(Variant(1), store_.ColCount());
    throw;
  }
  if (!keepRows) RemoveLeadingRows(oldRows);
  first = store_.RowCount() - count + 1;
  for (size_t k = 0; k < keys.size(); ++k)
    if (!keys[k].empty()) store_.SetRowKey(first + static_cast<int32_t>(k), keys[k]);
  NameColumns(fields, target);
  site_.CellValuesWritten(keepRows ? first : 1);
}

}  // namespace quilta::exchange
