// FillFromRS: columns and rows from a record set reached only through late-bound member calls.
// Records are read into new rows after the existing ones, and only when all of them have been
// read and their keys checked are the old rows removed (or kept) and the keys set; a record set
// that fails part-way (a database error, a wrong type, a duplicate row key) takes the new rows
// and columns with it and leaves the grid as it was.
#pragma once

#include <memory>
#include <quilta/dispatch.hpp>
#include <quilta/enums.hpp>
#include <string>
#include <vector>

#include "exchange/exchange_site.hpp"
#include "model/grid_store.hpp"

namespace quilta::exchange {

struct RecordSetField {
  std::shared_ptr<Dispatch> object;
  std::string name;
  std::string baseColumn;
  std::string baseTable;
};

class RecordSetFiller {
 public:
  RecordSetFiller(model::GridStore& store, ExchangeSite& site) : store_(store), site_(site) {}

  void Fill(const std::shared_ptr<Dispatch>& rs, EFillFromRSMode mode, const Variant& vRowKeyField);

 private:
  std::vector<RecordSetField> ReadFields(Dispatch& rs) const;
  int32_t KeyFieldOf(const std::vector<RecordSetField>& fields, const Variant& vRowKeyField) const;
  int32_t CountRecords(Dispatch& rs, bool ado) const;
  // Reads `count` records into the new rows from `first` on, and returns the key field's texts
  // when there is one.
  std::vector<std::string> ReadRecords(Dispatch& rs, const std::vector<RecordSetField>& fields,
                                       const std::vector<int32_t>& target, int32_t keyField,
                                       int32_t first, int32_t count);
  // The same through a record set's batch face.
  std::vector<std::string> ReadBatches(RecordBatchReader& rs, const std::vector<int32_t>& target,
                                       int32_t keyField, int32_t first, int32_t count);
  // Duplicates among the new keys, and with the rows kept (the first oldRows), raise 515.
  void CheckKeys(const std::vector<std::string>& keys, int32_t oldRows, bool keepRows) const;
  // The column index each field fills (0: none) in the grid's existing columns.
  std::vector<int32_t> MatchColumns(const std::vector<RecordSetField>& fields) const;
  std::vector<int32_t> CreateColumns(const std::vector<RecordSetField>& fields);
  void NameColumns(const std::vector<RecordSetField>& fields, const std::vector<int32_t>& target);
  void RemoveLeadingRows(int32_t count);

  model::GridStore& store_;
  ExchangeSite& site_;
};

}  // namespace quilta::exchange
