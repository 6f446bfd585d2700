#include "model/cell_object_access.hpp"
#include "model/cell_resources.hpp"

namespace quilta {

struct CellObject::Impl {
  model::Cell record;
  std::shared_ptr<model::CellResources> resources;
  model::CellObjectOwner* owner = nullptr;  // not counted: the grid owns this object
};

CellObject::CellObject(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
CellObject::~CellObject() = default;

namespace model {

std::shared_ptr<CellObject> CellObjectAccess::Create(std::shared_ptr<CellResources> resources,
                                                     CellObjectOwner* owner) {
  auto impl = std::make_unique<CellObject::Impl>();
  impl->resources = std::move(resources);
  impl->owner = owner;
  return std::shared_ptr<CellObject>(new CellObject(std::move(impl)));
}

const Cell& CellObjectAccess::Record(const CellObject& obj) { return obj.impl_->record; }
Cell& CellObjectAccess::MutableRecord(CellObject& obj) { return obj.impl_->record; }
void CellObjectAccess::Detach(CellObject& obj) { obj.impl_->owner = nullptr; }

}  // namespace model
}  // namespace quilta
