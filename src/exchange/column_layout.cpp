#include "exchange/column_layout.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "exchange/layout_items.hpp"
#include "layout/column_sizing.hpp"

namespace quilta::exchange {
namespace {

std::string Lower(std::string_view s) {
  std::string out(s);
  for (char& ch : out) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
  return out;
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

struct Header {
  int32_t dpi = 0;  // 0: none given
  std::string_view items;
};

// `{name=value;...}` before the items; only "dpi" means anything.
Header SplitHeader(std::string_view layout) {
  Header h{0, layout};
  size_t close = layout.find('}');
  if (layout.empty() || layout.front() != '{' || close == std::string_view::npos) return h;
  h.items = layout.substr(close + 1);
  std::string_view settings = layout.substr(1, close - 1);
  while (!settings.empty()) {
    size_t semi = settings.find(';');
    std::string_view setting = settings.substr(0, semi);
    settings = semi == std::string_view::npos ? std::string_view() : settings.substr(semi + 1);
    size_t eq = setting.find('=');
    if (eq == std::string_view::npos) continue;
    if (Lower(Trim(setting.substr(0, eq))) != "dpi") continue;
    double dpi = std::nearbyint(LeadingNumber(Lower(setting.substr(eq + 1))));
    h.dpi = dpi > 0 && dpi < std::numeric_limits<int32_t>::max() ? static_cast<int32_t>(dpi) : 0;
  }
  return h;
}

int32_t ScaledWidth(int32_t width, double factor) {
  double scaled = std::nearbyint(width * factor);  // halves to even
  return static_cast<int32_t>(std::clamp(scaled, 0.0, double(std::numeric_limits<int32_t>::max())));
}

// The table being built: a column index per display position, 0 while the position is free.
class NewTable {
 public:
  explicit NewTable(int32_t count) : byPos_(count + 1, 0), posOf_(count + 1, 0) {}

  void Place(int32_t index, int32_t pos) {
    if (posOf_[index]) byPos_[posOf_[index]] = 0;
    if (int32_t other = byPos_[pos]) posOf_[other] = 0;  // the later column takes the place
    byPos_[pos] = index;
    posOf_[index] = pos;
  }
  bool Placed(int32_t index) const { return posOf_[index] != 0; }
  bool Free(int32_t pos) const { return byPos_[pos] == 0; }

  // Strings that do not come from the writer may leave columns without a position: they fill
  // the free positions in their present display order.
  std::vector<int32_t> Complete(const model::ColumnStore& cols) {
    size_t free = 1;
    for (int32_t slot = 1; slot <= cols.ColCount(); ++slot) {
      int32_t index = cols.AtSlot(slot).index;
      if (Placed(index)) continue;
      while (byPos_[free] != 0) ++free;
      Place(index, static_cast<int32_t>(free));
    }
    return byPos_;
  }

 private:
  std::vector<int32_t> byPos_;
  std::vector<int32_t> posOf_;
};

// The display position of every column index, found in one pass over the slots.
std::vector<int32_t> SlotsByIndex(const model::ColumnStore& cols) {
  std::vector<int32_t> slotOf(static_cast<size_t>(cols.ColCount()) + 1, 0);
  for (int32_t slot = 1; slot <= cols.ColCount(); ++slot)
    slotOf[static_cast<size_t>(cols.AtSlot(slot).index)] = slot;
  return slotOf;
}

struct Settings {
  int32_t width;
  int32_t order;
  bool visible;
};

}  // namespace

std::string ColumnLayout::Write() const {
  std::string out = "{dpi=" + std::to_string(site_.Dpi()) + "}";
  std::vector<int32_t> slotOf = SlotsByIndex(cols_);
  for (int32_t index = 1; index <= cols_.ColCount(); ++index) {
    int32_t slot = slotOf[static_cast<size_t>(index)];
    const model::Column& c = cols_.AtSlot(slot);
    AppendItem(out, index, "Width", c.width);
    AppendItem(out, index, "Order", slot);
    AppendItem(out, index, "Visible", c.visible ? 1 : 0);
  }
  return out;
}

// What the items ask for: a position in the new table and settings for every column they name.
struct ColumnLayout::Placements {
  explicit Placements(int32_t count) : table(count), settings(static_cast<size_t>(count) + 1) {}
  NewTable table;
  std::vector<Settings> settings;  // order 0: the items did not place the column
  int32_t lastIndex = 0;
};

// Reads the items; false at damage.
bool ColumnLayout::ReadItems(std::string_view items, double factor, Placements& out) const {
  const int32_t count = cols_.ColCount();
  const model::Column* first = count ? &cols_.AtSlot(1) : nullptr;
  Settings current{first ? first->width : 64, 1, first ? first->visible : true};
  LayoutItemReader reader(items);
  int32_t skipped = 0;
  int32_t inGroup = 0;
  while (auto item = reader.Next()) {
    if (item->name == "Width" || item->name == "Order" || item->name == "Visible") {
      auto value = ParseInteger(item->value);
      if (!value) return false;
      if (item->name == "Width") current.width = ScaledWidth(*value, factor);
      if (item->name == "Order") current.order = *value;
      if (item->name == "Visible") current.visible = *value != 0;
    }
    if (item->col < 1) return false;
    out.lastIndex = item->col;
    if (++inGroup < 3) continue;
    inGroup = 0;
    // A column the grid lacks is skipped, and the columns after it move up one position.
    if (item->col > count) {
      ++skipped;
      continue;
    }
    int64_t pos = int64_t{current.order} - skipped;
    if (pos < 1 || pos > count) return false;
    out.table.Place(item->col, static_cast<int32_t>(pos));
    out.settings[static_cast<size_t>(item->col)] = current;
  }
  return !reader.Damaged();
}

std::vector<model::Column> ColumnLayout::NewColumns(Placements& p) const {
  const int32_t count = cols_.ColCount();
  for (int32_t index = std::min(p.lastIndex, count) + 1; index <= count; ++index)
    if (!p.table.Placed(index) && p.table.Free(index)) p.table.Place(index, index);
  std::vector<int32_t> order = p.table.Complete(cols_);
  std::vector<int32_t> slotOf = SlotsByIndex(cols_);
  std::vector<model::Column> slots;
  slots.reserve(cols_.Slots().size());
  for (int32_t pos = 1; pos <= count; ++pos) {
    model::Column c = cols_.AtSlot(slotOf[static_cast<size_t>(order[static_cast<size_t>(pos)])]);
    const Settings& read = p.settings[static_cast<size_t>(c.index)];
    if (read.order != 0) {
      c.width = layout::ClampWidth(c, read.width);
      c.visible = c.headerItem = read.visible;
    }
    slots.push_back(std::move(c));
  }
  slots.push_back(cols_.AtSlot(count + 1));  // the row text column stays last
  return slots;
}

void ColumnLayout::Read(std::string_view layout) {
  if (layout.empty()) return;
  Header header = SplitHeader(layout);
  double factor = double(site_.Dpi()) / (header.dpi ? header.dpi : 96);
  Placements placements(cols_.ColCount());
  if (!ReadItems(header.items, factor, placements)) return;
  std::vector<model::Column> slots = NewColumns(placements);
  site_.EndEditing();
  cols_.Slots() = std::move(slots);
  site_.ColumnTableReplaced();
}

}  // namespace quilta::exchange
