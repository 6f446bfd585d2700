// The control facade: members check and resolve their arguments and forward to the subsystem
// that owns the state. This file: construction, host wiring, columns and rows.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

Quilta::Quilta() : c_(std::make_unique<control::Control>(nullptr)) {}
Quilta::Quilta(Platform& platform) : c_(std::make_unique<control::Control>(&platform)) {}
Quilta::~Quilta() = default;
Quilta::Quilta(Quilta&&) noexcept = default;
Quilta& Quilta::operator=(Quilta&&) noexcept = default;

void Quilta::SetEventSink(QuiltaEvents* sink) { c_->events = sink; }
void Quilta::SetHostSite(HostSite* site) { c_->host = site; }
Platform& Quilta::GetPlatform() const { return *c_->platform; }

// ---- Columns -------------------------------------------------------------------------------

std::shared_ptr<CellObject> Quilta::AddCol(const AddColArgs& args) {
  return c_->store.AddCols(args);
}

void Quilta::RemoveCol(const Variant& vCol, int32_t lCount) { c_->store.RemoveCols(vCol, lCount); }

int32_t Quilta::ColIndex(std::string_view sKey) const {
  return c_->store.ResolveColIndex(Variant(sKey));
}

int32_t Quilta::ColPos(const Variant& vCol) const { return c_->store.ResolveColSlot(vCol); }

std::string Quilta::ColKey(int32_t lCol) const {
  return c_->store.Cols().AtSlot(c_->store.ResolveColSlot(lCol)).key;
}

void Quilta::SetColKey(int32_t lCol, std::string_view sKey) { c_->store.SetColKey(lCol, sKey); }

Variant Quilta::ColTag(const Variant& vCol) const {
  return c_->store.Cols().AtSlot(c_->store.ResolveColSlot(vCol)).tag;
}

void Quilta::SetColTag(const Variant& vCol, const Variant& vTag) {
  c_->store.Cols().AtSlot(c_->store.ResolveColSlot(vCol)).tag = vTag;
}

int32_t Quilta::ColCount() const { return c_->store.ColCount(); }

void Quilta::SetColCount(int32_t lCount) {
  c_->store.SetColCount(lCount, c_->props.Get(model::Prop::AutoColHeaderTextTemplate).StringView());
  if (lCount == 0) c_->SetCurrentCell(0, 0);
}

int32_t Quilta::RowTextCol() const { return c_->store.Cols().RowTextCol(); }

// ---- Rows ----------------------------------------------------------------------------------

int32_t Quilta::AddRow(const AddRowArgs& args) { return c_->store.AddRows(args); }

// A group whose last data row went goes with it.
void Quilta::RemoveRow(const Variant& vRow, int32_t lCount) {
  c_->store.RemoveRows(vRow, lCount);
  c_->grouping.RowsRemoved();
}

int32_t Quilta::RowIndex(std::string_view sKey) const { return c_->store.RowOfKey(sKey); }

std::string Quilta::RowKey(int32_t lRow) const {
  int32_t row = c_->store.ResolveRow(lRow);
  return std::string(c_->store.Rows().KeyOfPhys(c_->store.Rows().At(row).phys));
}

void Quilta::SetRowKey(int32_t lRow, std::string_view sKey) { c_->store.SetRowKey(lRow, sKey); }

Variant Quilta::RowTag(const Variant& vRow) const {
  int32_t row = c_->store.ResolveRow(vRow);
  return c_->store.Rows().TagOfPhys(c_->store.Rows().At(row).phys);
}

void Quilta::SetRowTag(const Variant& vRow, const Variant& vTag) {
  int32_t row = c_->store.ResolveRow(vRow);
  c_->store.Rows().SetTag(c_->store.Rows().At(row).phys, vTag);
}

int32_t Quilta::RowCount() const { return c_->store.RowCount(); }

void Quilta::SetRowCount(int32_t lCount) {
  c_->store.SetRowCount(lCount);
  c_->grouping.RowsRemoved();
}

void Quilta::Clear(bool bRemoveCols) { c_->store.Clear(bRemoveCols); }

int32_t Quilta::MemMngWantFreeRows() const { return c_->store.MemMngWantFreeRows(); }
void Quilta::SetMemMngWantFreeRows(int32_t l) {
  c_->SetProperty(model::Prop::MemMngWantFreeRows, l);
}

EStoreInitRowNumbersPlace Quilta::StoreInitRowNumbers() const {
  return c_->store.StoreInitRowNumbers();
}
void Quilta::SetStoreInitRowNumbers(EStoreInitRowNumbersPlace e) {
  c_->SetProperty(model::Prop::StoreInitRowNumbers, static_cast<int32_t>(e));
}

bool Quilta::Virtual() const { return c_->store.Virtual(); }
void Quilta::SetVirtual(bool b) { c_->SetProperty(model::Prop::Virtual, b); }

int32_t Quilta::Sys(ESystemParameters eParam) const {
  switch (eParam) {
    case quSysMemMngAllocatedRows:
      return c_->store.AllocatedRows();
    case quSysMemMngFreePhysRows:
      return c_->store.Rows().FreeCount();
    case quSysFormatStringCount:
      return c_->resources->formats.Count();
    case quSysFontCount:
      return c_->resources->fonts.Count();
  }
  throw Error::FromCode(quErrInvalidArgument);
}

bool Quilta::Supports(ESupportFeatures eFeature) const {
  switch (eFeature) {
    case quSupportsVirtualMode:
    case quSupportsTreeRows:
    case quSupportsUnicode:
      return true;
    case quSupportsGrouping:
    case quSupportsXPStyles:
      return false;
  }
  throw Error::FromCode(quErrInvalidArgument);
}

}  // namespace quilta
