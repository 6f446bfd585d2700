// Painting a 1920 x 1080 grid of 1,000,000 rows x 10 columns: QuiltaWidget beside Qt's
// QTableView over a QStandardItemModel holding the same values, in one run. Each widget is
// rendered whole into an image (header, cells, scroll bars), as a full repaint does; the scroll
// figures move the vertical scroll bar down one page and then repaint.
//
// Usage: qt_paint_compare [benchmark flags]   (offscreen unless a display is set)
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <cstdint>
#include <memory>
#include <quilta/qt/quilta_widget.hpp>
#include <string>
#include <vector>

namespace {

constexpr int32_t kRows = 1'000'000;
constexpr int kCols = 10;  // text, integer, eight numbers with two decimals
constexpr int kColWidth = 190;
constexpr QSize kSize(1920, 1080);

// splitmix64, so every run paints the same values.
class Random {
 public:
  uint64_t Next() {
    uint64_t z = (s_ += 0x9e3779b97f4a7c15ull);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
    return z ^ (z >> 31);
  }
  uint32_t Below(uint32_t n) { return static_cast<uint32_t>(Next() % n); }

 private:
  uint64_t s_ = 0x5eed'2024'0002ull;
};

// Numbers with two decimals below 10,000 read the same in both: Quilta's general format and
// the item view's six significant digits.
struct Table {
  std::vector<std::string> text;
  std::vector<int32_t> integer;
  std::vector<double> numbers;  // kRows x 8
};

const Table& Data() {
  static const Table t = [] {
    Random rnd;
    Table t;
    t.text.resize(kRows);
    t.integer.resize(kRows);
    t.numbers.resize(size_t(kRows) * 8);
    for (int32_t r = 0; r < kRows; ++r) {
      t.text[r].resize(8 + rnd.Below(9));
      for (char& ch : t.text[r]) ch = static_cast<char>((rnd.Below(2) ? 'a' : 'A') + rnd.Below(26));
      t.integer[r] = static_cast<int32_t>(rnd.Below(1'000'000));
      for (int d = 0; d < 8; ++d) t.numbers[size_t(r) * 8 + d] = rnd.Below(1'000'000) / 100.0;
    }
    return t;
  }();
  return t;
}

quilta::qt::QuiltaWidget& Quilta() {
  static quilta::qt::QuiltaWidget* w = [] {
    auto* widget = new quilta::qt::QuiltaWidget;
    quilta::Quilta& g = widget->grid();
    const Table& t = Data();
    g.BeginUpdate();
    g.AddCol({.lCount = kCols});
    g.SetColWidths(kColWidth);
    g.AddRow({.lCount = kRows});
    for (int32_t r = 0; r < kRows; ++r) {
      g.SetCellValue(r + 1, 1, t.text[r]);
      g.SetCellValue(r + 1, 2, t.integer[r]);
      for (int d = 0; d < 8; ++d) g.SetCellValue(r + 1, 3 + d, t.numbers[size_t(r) * 8 + d]);
    }
    g.SetGridLines(quilta::quGridLinesBoth);
    g.EndUpdate();
    widget->resize(kSize);
    widget->show();
    return widget;
  }();
  return *w;
}

QTableView& TableView() {
  static QTableView* v = [] {
    const Table& t = Data();
    auto* model = new QStandardItemModel(kRows, kCols);
    for (int r = 0; r < kRows; ++r) {
      model->setItem(r, 0, new QStandardItem(QString::fromStdString(t.text[r])));
      auto* qty = new QStandardItem;
      qty->setData(t.integer[r], Qt::DisplayRole);
      model->setItem(r, 1, qty);
      for (int d = 0; d < 8; ++d) {
        auto* item = new QStandardItem;
        item->setData(t.numbers[size_t(r) * 8 + d], Qt::DisplayRole);
        model->setItem(r, 2 + d, item);
      }
    }
    auto* view = new QTableView;
    view->setModel(model);
    // The same geometry as the grid: no row header, the grid's row height and column widths.
    view->verticalHeader()->hide();
    view->verticalHeader()->setMinimumSectionSize(1);
    view->verticalHeader()->setDefaultSectionSize(Quilta().grid().DefaultRowHeight());
    view->horizontalHeader()->setDefaultSectionSize(kColWidth);
    view->resize(kSize);
    view->show();
    return view;
  }();
  return *v;
}

void Settle() {
  for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

template <class Widget>
void Repaint(benchmark::State& state, Widget& w) {
  Settle();
  QImage image(w.size(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    w.render(&image);
    benchmark::DoNotOptimize(image.constBits());
  }
}

// Each iteration scrolls one page further down (back to the top at the end) and repaints.
template <class Widget>
void ScrollPage(benchmark::State& state, Widget& w) {
  Settle();
  QScrollBar* bar = w.verticalScrollBar();
  QImage image(w.size(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    const int next = bar->value() + bar->pageStep();
    bar->setValue(next > bar->maximum() ? 0 : next);
    w.render(&image);
    benchmark::DoNotOptimize(image.constBits());
  }
  state.counters["page"] = bar->pageStep();
}

void BM_FullRepaint_Quilta(benchmark::State& s) { Repaint(s, Quilta()); }
void BM_FullRepaint_QTableView(benchmark::State& s) { Repaint(s, TableView()); }
void BM_ScrollPage_Quilta(benchmark::State& s) { ScrollPage(s, Quilta()); }
void BM_ScrollPage_QTableView(benchmark::State& s) { ScrollPage(s, TableView()); }

BENCHMARK(BM_FullRepaint_Quilta)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_FullRepaint_QTableView)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ScrollPage_Quilta)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ScrollPage_QTableView)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
      qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  // Each widget is loaded by the first benchmark that needs it, before that benchmark's timing.
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
