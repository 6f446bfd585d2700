// FillFromRS: columns and rows from a record set reached only through late-bound member calls.
// Everything is read from the record set before the grid changes, so a record set that fails
// part-way (a database error, a wrong type, a duplicate row key) leaves the grid as it was.
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
  struct Records {
    int32_t count = 0;
    std::vector<std::vector<Variant>> byField;  // one column of values per field
    std::vector<std::string> keys;              // row keys, when a key field is given
  };

  std::vector<RecordSetField> ReadFields(Dispatch& rs) const;
  int32_t KeyFieldOf(const std::vector<RecordSetField>& fields, const Variant& vRowKeyField) const;
  Records ReadRecords(Dispatch& rs, const std::vector<RecordSetField>& fields, int32_t keyField,
                      bool ado) const;
  void CheckKeys(const Records& records, bool keepRows) const;
  // The column index each field fills (0: none) in the grid's existing columns.
  std::vector<int32_t> MatchColumns(const std::vector<RecordSetField>& fields) const;
  std::vector<int32_t> CreateColumns(const std::vector<RecordSetField>& fields);
  void NameColumns(const std::vector<RecordSetField>& fields, const std::vector<int32_t>& target);
  void AppendRows(Records& records, const std::vector<int32_t>& target);

  model::GridStore& store_;
  ExchangeSite& site_;
};

}  // namespace quilta::exchange
