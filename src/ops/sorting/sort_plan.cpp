#include "ops/sorting/sort_plan.hpp"

#include <algorithm>

#include "control/control.hpp"

namespace quilta::ops {
namespace {

int Sign(int64_t v) { return (v > 0) - (v < 0); }

PlannedCriterion Plan(control::Control& c, const Criterion& item, bool customGroupsRaise) {
  PlannedCriterion k;
  k.type = item.type;
  k.desc = item.order == quSortDesc;
  bool known = item.col >= 1 && item.col <= c.store.Cols().RowTextCol();
  k.kind = known ? KindOf(item.type) : SortKind::None;
  k.col = known ? item.col : 0;
  if (k.kind == SortKind::CustomGroups && !customGroupsRaise) k.kind = SortKind::General;
  return k;
}

}  // namespace

bool SortPlan::RaisesEvents() const {
  for (const PlannedCriterion& k : criteria) {
    if (k.kind == SortKind::Custom || k.kind == SortKind::CustomGroups) return true;
    if (k.kind == SortKind::Icon && dynamicIcons) return true;
  }
  return false;
}

SortPlan MakePlan(control::Control& c, const Criteria& criteria, int32_t first, int32_t last,
                  bool groupingSort) {
  SortPlan plan;
  plan.first = first;
  plan.last = last;
  plan.live = &criteria;
  plan.dynamicIcons = c.CellDynamicIconsEnabled();
  const Criteria& groupedBy = c.grouping.GroupedBy();
  int32_t lastGroupCol = groupedBy.empty() ? 0 : groupedBy.back().col;
  for (const Criterion& item : criteria) {
    bool raise = groupingSort && !groupedBy.empty() && item.col != lastGroupCol;
    plan.criteria.push_back(Plan(c, item, raise));
  }
  return plan;
}

// ---- The exact comparison -------------------------------------------------------------------

DirectComparer::DirectComparer(control::Control& c, const SortPlan& plan)
    : c_(c), plan_(plan), rowCount_(c.store.RowCount()), colCount_(c.store.ColCount()) {
  PrepareTexts();
}

// Texts are taken once per row, before any comparison: formatting a displayed text or converting
// a value for every comparison would cost far more than the sort itself.
void DirectComparer::PrepareTexts() {
  texts_.resize(plan_.criteria.size());
  bool any = false;
  for (size_t i = 0; i < plan_.criteria.size(); ++i) {
    const PlannedCriterion& k = plan_.criteria[i];
    if (k.kind != SortKind::ValueText && k.kind != SortKind::CellText) continue;
    any = true;
    Texts& t = texts_[i];
    t.text.resize(plan_.Count());
    if (k.kind == SortKind::ValueText) t.isNull.assign(plan_.Count(), 0);
    for (int32_t r = plan_.first; r <= plan_.last; ++r) {
      size_t off = static_cast<size_t>(r - plan_.first);
      if (k.kind == SortKind::CellText) {
        t.text[off] = c_.CellText(r, k.col);
        continue;
      }
      const Variant& v = c_.store.CellAt(r, k.col).value;
      if (v.IsNull()) {
        t.isNull[off] = 1;
      } else if (v.IsString()) {
        t.text[off] = std::string(v.StringView());
      } else {
        t.text[off] = CStr(v);
      }
    }
  }
  if (!any) return;
  offsetOfPhys_.assign(static_cast<size_t>(c_.store.Rows().PhysHighWater()) + 1, 0);
  for (int32_t r = plan_.first; r <= plan_.last; ++r)
    offsetOfPhys_[c_.store.Rows().At(r).phys] = static_cast<uint32_t>(r - plan_.first);
}

int DirectComparer::Rows(const model::RowRecord& a, int32_t posA, const model::RowRecord& b,
                         int32_t posB) {
  const std::vector<PlannedCriterion>& ks = plan_.criteria;
  if (ks.empty() || plan_.live->empty()) return 0;
  size_t k = 0;
  int result = 0;
  for (;;) {
    result = Cells(k, a, posA, b, posB);
    if (result != 0 || k + 1 >= std::min(ks.size(), plan_.live->size())) break;
    ++k;
  }
  return ks[k].desc ? -result : result;
}

int DirectComparer::Cells(size_t index, const model::RowRecord& a, int32_t posA,
                          const model::RowRecord& b, int32_t posB) {
  const PlannedCriterion& k = plan_.criteria[index];
  const Texts& t = texts_[index];
  switch (k.kind) {
    case SortKind::None:
      return 0;
    case SortKind::General:
      return CompareGeneral(c_.store.Cells().Get(k.col, a.phys).value,
                            c_.store.Cells().Get(k.col, b.phys).value);
    case SortKind::ValueText: {
      int nulls = CompareNulls(t.isNull[Offset(a)], t.isNull[Offset(b)]);
      if (nulls != 2) return nulls;
      return CompareText(t.text[Offset(a)], t.text[Offset(b)], NoCase(k.type));
    }
    case SortKind::CellText:
      return CompareText(t.text[Offset(a)], t.text[Offset(b)], NoCase(k.type));
    case SortKind::Icon:
      if (plan_.dynamicIcons) {
        int16_t first = DynamicIcon(k, a, posA);
        return Sign(CompareFields(k.type, first, DynamicIcon(k, b, posB)));
      }
      [[fallthrough]];
    case SortKind::Field: {
      int64_t x = FieldValue(k.type, c_.store.Cells().Get(k.col, a.phys));
      return Sign(
          CompareFields(k.type, x, FieldValue(k.type, c_.store.Cells().Get(k.col, b.phys))));
    }
    case SortKind::CustomGroups: {
      Variant first = GroupValue(k, a, posA);
      return CompareGeneral(first, GroupValue(k, b, posB));
    }
    case SortKind::Custom: {
      Variant v1 = c_.store.Cells().Get(k.col, a.phys).value;
      Variant v2 = c_.store.Cells().Get(k.col, b.phys).value;
      int32_t result = 0;
      if (c_.events) c_.events->CustomSort(k.col, posA, posB, v1, v2, result);
      CheckRowsKept();
      return Sign(result);
    }
  }
  return 0;
}

int16_t DirectComparer::DynamicIcon(const PlannedCriterion& k, const model::RowRecord& r,
                                    int32_t pos) {
  const model::Cell& cell = c_.store.Cells().Get(k.col, r.phys);
  Variant value = cell.value;
  int16_t icon = cell.Icon();
  int16_t extraIcon = cell.ExtraIcon();
  if (c_.events) c_.events->CellDynamicIcons(pos, k.col, value, icon, extraIcon);
  CheckRowsKept();
  return k.type == quSortByIcon ? icon : extraIcon;
}

Variant DirectComparer::GroupValue(const PlannedCriterion& k, const model::RowRecord& r,
                                   int32_t pos) {
  Variant value = c_.store.Cells().Get(k.col, r.phys).value;
  std::string text;
  if (c_.events) c_.events->CustomGroupValue(pos, k.col, value, text);
  CheckRowsKept();
  return value;
}

// Rows or columns added or removed by a handler would pull the cells being compared from under
// the sort.
void DirectComparer::CheckRowsKept() const {
  if (c_.store.RowCount() != rowCount_ || c_.store.ColCount() != colCount_)
    throw Error::FromCode(quErrIllegalOperation);
}

}  // namespace quilta::ops
