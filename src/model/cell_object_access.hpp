// How the grid reaches the record behind a column's CellObject.
#pragma once

#include <memory>
#include <quilta/cell_object.hpp>

#include "model/cell.hpp"

namespace quilta::model {

class CellResources;

// The grid side of a CellObject: told after every change so that it can refresh what depends on
// the column's template.
class CellObjectOwner {
 public:
  virtual ~CellObjectOwner() = default;
  virtual void DefaultCellChanged(const CellObject& obj) = 0;
  // The font a cell without a font of its own shows.
  virtual std::shared_ptr<Font> DefaultFont() const = 0;
};

struct CellObjectAccess {
  static std::shared_ptr<CellObject> Create(std::shared_ptr<CellResources> resources,
                                            CellObjectOwner* owner);
  static const Cell& Record(const CellObject& obj);
  static Cell& MutableRecord(CellObject& obj);
  // The column is gone: the object keeps working on its own record but changes nothing else.
  static void Detach(CellObject& obj);
};

}  // namespace quilta::model
