// The key-search highlight that grid painting draws: the typed characters at the start of the
// searched cell of the current row.
#include "control/control.hpp"
#include "model/text/text.hpp"

namespace quilta::control {

int32_t Control::KeySearchHighlight(int32_t row, int32_t colIndex) {
  const std::string& typed = keySearch.Text();
  if (typed.empty() || row != CurRow() || colIndex != keySearch.SearchColumn()) return 0;
  return static_cast<int32_t>(text::DecodeUtf8(typed).size());
}

}  // namespace quilta::control
