// SelItemsObject: the grid's list of selected items, reached through Quilta::SelItems(). In row
// mode every item is (row, 1), one per selected row.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quilta {

namespace interaction {
class SelItems;
}
namespace control {
struct Control;
}

struct TSelItemInfo {
  int32_t Row = 0;
  int32_t Col = 0;
  friend bool operator==(const TSelItemInfo&, const TSelItemInfo&) = default;
};

class SelItemsObject {
 public:
  SelItemsObject(const SelItemsObject&) = delete;
  SelItemsObject& operator=(const SelItemsObject&) = delete;

  int32_t Count() const;
  // Whether GetArray and GetString list the items by row, then column (the default), or in the
  // list's own order.
  bool Sorted() const;
  void SetSorted(bool bSorted);
  // The items; element 0 is item 1. The overload with bounds also returns the smallest and
  // largest row and column among them (2147483647 and 0 when there are none).
  std::vector<TSelItemInfo> GetArray() const;
  std::vector<TSelItemInfo> GetArray(int32_t& lMinRow, int32_t& lMaxRow, int32_t& lMinCol,
                                     int32_t& lMaxCol) const;
  // The items as "(row,col)" separated by semicolons, e.g. "(2,1);(2,3);(5,1)".
  std::string GetString() const;
  std::string GetString(int32_t& lMinRow, int32_t& lMaxRow, int32_t& lMinCol,
                        int32_t& lMaxCol) const;

 private:
  friend struct control::Control;
  explicit SelItemsObject(interaction::SelItems& items) : items_(&items) {}
  interaction::SelItems* items_;
};

}  // namespace quilta
