// The control facade: layout strings, arrays and record sets.
#include <quilta/quilta.hpp>

#include "control/control.hpp"
#include "exchange/array_transfer.hpp"
#include "exchange/column_layout.hpp"
#include "exchange/record_set_filler.hpp"
#include "exchange/sort_layout.hpp"

namespace quilta {
namespace {

exchange::ColumnLayout Columns(control::Control& c) { return {c.store.Cols(), c.exchangeSite}; }

exchange::SortLayout Sorting(control::Control& c) {
  return {c.store.Cols(), c.sortObject, c.exchangeSite};
}

const model::Column& Col(const control::Control& c, const Variant& vCol) {
  return c.store.Cols().AtSlot(c.store.ResolveColSlot(vCol));
}

}  // namespace

std::string Quilta::LayoutCol() const { return Columns(*c_).Write(); }
void Quilta::SetLayoutCol(std::string_view sLayout) { Columns(*c_).Read(sLayout); }

std::string Quilta::LayoutSort() const { return Sorting(*c_).Write(); }
void Quilta::SetLayoutSort(std::string_view sLayout) { Sorting(*c_).Read(sLayout); }

void Quilta::LoadFromArray(const Variant& vStartRow, const Variant& vStartCol,
                           const Variant& vArray, bool bColMajorOrder) {
  exchange::ArrayTransfer(c_->store, c_->exchangeSite)
      .LoadFromArray(vStartRow, vStartCol, vArray, bColMajorOrder);
}

void Quilta::LoadIntoArray(const Variant& vStartRow, const Variant& vStartCol, Variant& vArray,
                           bool bColMajorOrder) const {
  exchange::ArrayTransfer(c_->store, c_->exchangeSite)
      .LoadIntoArray(vStartRow, vStartCol, vArray, bColMajorOrder);
}

void Quilta::FillFromRS(const std::shared_ptr<Dispatch>& RS, EFillFromRSMode eMode,
                        const Variant& vRowKeyField) {
  exchange::RecordSetFiller(c_->store, c_->exchangeSite).Fill(RS, eMode, vRowKeyField);
}

std::string Quilta::ColDataField(const Variant& vCol) const { return Col(*c_, vCol).dataField; }
std::string Quilta::ColDataTable(const Variant& vCol) const { return Col(*c_, vCol).dataTable; }

}  // namespace quilta
