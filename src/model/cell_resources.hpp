// Tables shared by every cell of a grid and by its column default cells: format strings, fonts
// and the combo-list keys. Cells store small numbers into them.
#pragma once

namespace quilta::model {

class CellResources {};

}  // namespace quilta::model
