// The control facade: sorting.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

SortGroupObject& Quilta::SortObject() { return c_->sortObject; }
const SortGroupObject& Quilta::SortObject() const { return c_->sortObject; }
SortGroupObject& Quilta::GroupObject() { return c_->groupObject; }
const SortGroupObject& Quilta::GroupObject() const { return c_->groupObject; }

}  // namespace quilta
