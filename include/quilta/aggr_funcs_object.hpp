// AggrFuncsObject: the aggregates a grouped grid shows in its group rows. Each item names a column,
// the function computed over the values of that column in the data rows of each group, and an
// optional format for the result. The grid owns one for its whole life: Quilta::AggrFuncs().
#pragma once

#include <cstdint>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quilta {

namespace model {
class GridStore;
}
namespace ops {
struct AggrFuncsAccess;
class AggrFuncsListener;
}  // namespace ops

// Null and Empty values are skipped by every function. Count, Sum and Avg of no values give
// 0, Null and Null; Min, Max, First and Last of no values give Null.
enum EAggrFuncs : int32_t {
  quAggrCount = 0,         // number of values
  quAggrSum = 1,           // Variant addition: integers widen, Currency stays exact
  quAggrAvg = 2,           // Sum / Count: Currency for Currency and integers, Date for dates
  quAggrMin = 3,           // by the general comparison rule (texts ignore case)
  quAggrMax = 4,           //
  quAggrFirst = 5,         // the first value in the group's row order
  quAggrLast = 6,          // the last value in the group's row order
  quAggrCountDistinct = 7  // number of values that differ by the general comparison rule
};

class AggrFuncsObject {
 public:
  AggrFuncsObject(const AggrFuncsObject&) = delete;
  AggrFuncsObject& operator=(const AggrFuncsObject&) = delete;

  int32_t Count() const;
  // Appends an aggregate of a column (index or key, 1..ColCount, else 513); returns its 1-based
  // index. sFmtString formats the result; empty means the column's own format (a plain number
  // for the two counts).
  int32_t AddItem(const Variant& vCol, EAggrFuncs eFunc = quAggrSum,
                  std::string_view sFmtString = {});
  // Index outside 1..Count: 514.
  void RemoveItem(int32_t lIndex);
  void Clear();
  int32_t AggrCol(int32_t lIndex) const;
  void SetAggrCol(int32_t lIndex, const Variant& vCol);
  EAggrFuncs AggrFunc(int32_t lIndex) const;
  // A value outside EAggrFuncs: 514.
  void SetAggrFunc(int32_t lIndex, EAggrFuncs eFunc);
  std::string AggrFmtString(int32_t lIndex) const;
  void SetAggrFmtString(int32_t lIndex, std::string_view sFmtString);

 private:
  friend struct ops::AggrFuncsAccess;
  struct Item {
    int32_t col;
    EAggrFuncs func;
    std::string fmt;
  };
  AggrFuncsObject(const model::GridStore& grid, ops::AggrFuncsListener& listener)
      : grid_(&grid), listener_(&listener) {}
  const Item& At(int32_t lIndex) const;
  int32_t ResolveCol(const Variant& vCol) const;
  void Changed();

  const model::GridStore* grid_;      // resolves column references
  ops::AggrFuncsListener* listener_;  // the grid's grouping, which recomputes the results
  std::vector<Item> items_;
};

}  // namespace quilta
