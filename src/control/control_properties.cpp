// How persisted properties reach the subsystems that act on them.
#include "control/control.hpp"

namespace quilta::control {

using model::Prop;

Variant Control::PropertyValue(Prop p) const { return props.Get(p); }

void Control::ApplyProperty(Prop p, const Variant& value) {
  bool changed = props.Store(p, value);
  switch (p) {
    case Prop::MemMngWantFreeRows:
      store.SetMemMngWantFreeRows(value.LongValue());
      break;
    case Prop::StoreInitRowNumbers:
      store.SetStoreInitRowNumbers(static_cast<EStoreInitRowNumbersPlace>(value.LongValue()));
      break;
    case Prop::Virtual:
      store.SetVirtual(value.BoolValue());
      break;
    case Prop::BeginUpdateRecalcRowParms:
      if (changed) SetRecalcRowParms(value.BoolValue());
      break;
    case Prop::FrozenCols:
      if (changed) {
        // The boundary between frozen and scrolled columns moved: start scrolled columns afresh.
        ScrollTo(quScrollBarH, 0);
        RecalcColumns();
        RequestRedraw();
      }
      break;
    case Prop::FrozenColsEdgeWidth:
    case Prop::GridLineThicknessH:
    case Prop::GridLineThicknessV:
      if (changed) {
        geometry.RecordChange(model::kLayoutRows);
        RequestRedraw();
      }
      break;
    case Prop::LevelIndent:
      if (changed) {
        LevelIndentPixels();
        geometry.RecordChange(model::kLayoutRows);
        RequestRedraw();
      }
      break;
    case Prop::TreeCol:
      if (changed) RelayoutAll();
      break;
    case Prop::GroupByBoxVisible:
      if (changed) {
        // The band comes or goes: the header and the cells move, and no drag of it survives.
        groupByBand.Reset();
        view.Invalidate();
        RequestRedraw();
      }
      break;
    case Prop::PrefixGroupValues:
      if (changed) grouping.RefreshTexts();
      break;
    default:
      if (changed) RequestRedraw();
      break;
  }
}

void Control::SetProperty(Prop p, const Variant& raw) {
  ApplyProperty(p, model::ControlProperties::Normalize(p, raw));
  NotifyPropertyChanged(p);
}

void Control::NotifyPropertyChanged(Prop p) {
  if (host && !loadingProperties) host->PropertyChanged(model::Info(p).name);
}

}  // namespace quilta::control
