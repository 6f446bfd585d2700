// What the group-by band needs from the rest of the control: the columns and the levels the grid
// is grouped by, the view and look to paint its boxes, and the one operation it starts:
// grouping again by a new list of levels. The control implements it.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/events.hpp>
#include <string>
#include <vector>

#include "header/header_site.hpp"

namespace quilta::header {

// One grouping level as the band shows and changes it.
struct GroupLevel {
  int32_t col = 0;
  ESortOrders order = quSortAsc;
  ESortTypes type = quSortByValueGeneral;
  friend bool operator==(const GroupLevel&, const GroupLevel&) = default;
};

class GroupBySite {
 public:
  virtual ~GroupBySite() = default;

  virtual const model::ColumnStore& Columns() const = 0;
  virtual const layout::View& GetView() const = 0;
  virtual HeaderLook Look() const = 0;
  virtual Platform& GetPlatform() const = 0;
  virtual QuiltaEvents* Events() const = 0;

  // The levels the grid is grouped by now, outermost first.
  virtual std::vector<GroupLevel> GroupedBy() const = 0;
  virtual int32_t LevelCount() const = 0;
  // The height of one line of the header's font (the band sizes itself on every layout pass, so
  // this is asked often).
  virtual int32_t LineHeight() const = 0;
  // AllowGrouping: while it is off the band accepts no drop and changes nothing.
  virtual bool GroupingAllowed() const = 0;
  // The prompt shown while nothing is grouped.
  virtual std::string PromptText() const = 0;
  // Groups by these levels (ungroups when empty), as Group does with GroupObject.
  virtual void Regroup(const std::vector<GroupLevel>& levels) = 0;
  // Part of the band must be painted again (ignored while updates are suspended).
  virtual void InvalidateBand(const Rect& r) = 0;
};

}  // namespace quilta::header
