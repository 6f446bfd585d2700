// The group-by band's painting and mouse handling, and what the band asks of the control.
#include "control/control.hpp"
#include "ops/sorting/sort_group_access.hpp"

namespace quilta::control {

int32_t Control::GroupByHeightPixels() const {
  return props.Bool(model::Prop::GroupByBoxVisible) ? groupByBand.Height() : 0;
}

bool Control::GroupByMouse(MouseAction action, int16_t button, int16_t shift, Point at) {
  return groupByBand.Mouse(HeaderMouseOf(action), button, shift, at);
}

// ---- GroupBySite --------------------------------------------------------------------------------

std::vector<header::GroupLevel> Control::GroupBySite::GroupedBy() const {
  std::vector<header::GroupLevel> levels;
  for (const ops::Criterion& k : c.grouping.GroupedBy()) levels.push_back({k.col, k.order, k.type});
  return levels;
}

bool Control::GroupBySite::GroupingAllowed() const {
  return c.props.Bool(model::Prop::AllowGrouping);
}

int32_t Control::GroupBySite::LineHeight() const {
  const std::shared_ptr<Font>& own = c.headerStrip.Options().font;
  return c.platform->MeasureText("Ag", own ? *own : c.props.FontValue(), quTextSingleLine, 0).cy;
}

std::string Control::GroupBySite::PromptText() const {
  return c.props.String(model::Prop::GroupByBoxText);
}

void Control::GroupBySite::Regroup(const std::vector<header::GroupLevel>& levels) {
  ops::Criteria criteria;
  for (const header::GroupLevel& level : levels)
    criteria.push_back(ops::Criterion{level.col, level.order, level.type});
  c.grouping.CheckCriteria(criteria);
  ops::SortGroupAccess::Items(c.groupObject) = std::move(criteria);
  c.grouping.Group();
  c.InvalidateHeader();
}

}  // namespace quilta::control
