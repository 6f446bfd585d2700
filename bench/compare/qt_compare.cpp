// Quilta against Qt's QStandardItemModel (sorted through a QSortFilterProxyModel) and a plain
// C++ floor, on the same generated table in one process: load time, resident bytes per cell,
// case-insensitive text sort, integer sort and rewriting one column.
//
// Usage: qt_compare [rows ...]   (default: 100000 1000000)
#include <malloc.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QString>
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <optional>
#include <quilta/quilta.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "../memory.hpp"

namespace {

constexpr int kCols = 10;  // text, integer, eight doubles
constexpr int kDoubles = 8;
constexpr int kChangeCol = 3;  // 1-based: the first double column is rewritten
constexpr uint64_t kSeed = 0x5eed'2024'0001ull;

// splitmix64: the same numbers with every standard library, unlike std::uniform_*_distribution.
class Random {
 public:
  explicit Random(uint64_t seed) : s_(seed) {}
  uint64_t Next() {
    uint64_t z = (s_ += 0x9e3779b97f4a7c15ull);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
    return z ^ (z >> 31);
  }
  uint32_t Below(uint32_t n) { return static_cast<uint32_t>(Next() % n); }
  double Unit() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

 private:
  uint64_t s_;
};

// The table every engine loads. Text: 8-16 letters of mixed case drawn from a pool a quarter the
// size of the table, so values repeat (also in different case) as names in real data do.
struct Table {
  int32_t rows = 0;
  std::vector<std::string> text;
  std::vector<int32_t> integer;
  std::vector<double> reals;   // rows x kDoubles, row by row
  std::vector<double> update;  // the new values of the rewritten column
  double Real(int32_t row, int d) const { return reals[size_t(row) * kDoubles + d]; }
};

Table MakeTable(int32_t rows) {
  Random rnd(kSeed);
  Table t;
  t.rows = rows;
  std::vector<std::string> pool(std::max<int32_t>(1, rows / 4));
  for (auto& s : pool) {
    s.resize(8 + rnd.Below(9));
    for (char& ch : s) ch = static_cast<char>((rnd.Below(2) ? 'a' : 'A') + rnd.Below(26));
  }
  t.text.resize(rows);
  t.integer.resize(rows);
  t.reals.resize(size_t(rows) * kDoubles);
  t.update.resize(rows);
  for (int32_t r = 0; r < rows; ++r) {
    t.text[r] = pool[rnd.Below(static_cast<uint32_t>(pool.size()))];
    // Some repeats differ only in case, so the case-insensitive sort sees true ties.
    if (rnd.Below(4) == 0) t.text[r][0] ^= 0x20;
    t.integer[r] = static_cast<int32_t>(rnd.Below(1'000'000));
    for (int d = 0; d < kDoubles; ++d) t.reals[size_t(r) * kDoubles + d] = rnd.Unit() * 1e6;
    t.update[r] = rnd.Unit() * 1e6;
  }
  return t;
}

std::string Fold(std::string_view s) {
  std::string out(s);
  for (char& ch : out)
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch + ('a' - 'A'));
  return out;
}

double Seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// Quilta's and the floor's sorts take a fraction of a second, so each is timed this many times on
// the same input and the median reported: on a shared VM a single timing can be a third off.
// Qt's sorts take seconds each and are timed once.
constexpr int kSortRepeats = 3;

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

// Returns freed heap pages to the system, so the next "before" reading starts from a clean heap.
long SettledResidentBytes() {
  malloc_trim(0);
  return quilta::bench::ResidentBytes();
}

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "check failed: %s\n", what);
  std::exit(1);
}

// The figures of one engine; an absent value is printed as "-".
struct Figures {
  std::optional<double> load, loadWarm, bytesPerCell, sortText, sortInt, change, changeOneValue;
  long residentBefore = 0, residentAfter = 0;  // bytes, around the first load
  std::string firstText;  // the first text value after the text sort (folded), for cross-checks
  int32_t firstInt = 0;   // the first integer after the integer sort
};

// The first load into a fresh process: its time, and the resident memory read around it.
template <class Load>
auto FirstLoad(const Table& t, Figures& f, Load load) {
  f.residentBefore = SettledResidentBytes();
  auto t0 = std::chrono::steady_clock::now();
  auto model = load(t);
  f.load = Seconds(t0);
  f.residentAfter = quilta::bench::ResidentBytes();
  f.bytesPerCell = double(f.residentAfter - f.residentBefore) / (double(t.rows) * kCols);
  return model;
}

// ---- Plain C++ floor ---------------------------------------------------------------------------

// Sorts a fresh copy of the keys kSortRepeats times with std::sort and returns the median time;
// the keys are left sorted.
template <class Key, class Less>
double MedianSortTime(std::vector<Key>& keys, Less less) {
  const std::vector<Key> unsorted = keys;
  std::vector<double> times;
  for (int k = 0; k < kSortRepeats; ++k) {
    keys = unsorted;
    auto t0 = std::chrono::steady_clock::now();
    std::sort(keys.begin(), keys.end(), less);
    times.push_back(Seconds(t0));
  }
  return Median(times);
}

Figures RunFloor(const Table& t) {
  Figures f;
  struct TextKey {
    std::string folded;
    int32_t row;
  };
  std::vector<TextKey> text;
  text.reserve(t.rows);
  for (int32_t r = 0; r < t.rows; ++r) text.push_back({Fold(t.text[r]), r});
  f.sortText =
      MedianSortTime(text, [](const TextKey& a, const TextKey& b) { return a.folded < b.folded; });
  f.firstText = text.front().folded;

  struct IntKey {
    int32_t value;
    int32_t row;
  };
  std::vector<IntKey> ints;
  ints.reserve(t.rows);
  for (int32_t r = 0; r < t.rows; ++r) ints.push_back({t.integer[r], r});
  f.sortInt =
      MedianSortTime(ints, [](const IntKey& a, const IntKey& b) { return a.value < b.value; });
  f.firstInt = ints.front().value;
  return f;
}

// ---- Quilta ------------------------------------------------------------------------------------

void CheckQuiltaSorted(const quilta::Quilta& grid, Figures& f) {
  std::string prev;
  for (int32_t r = 1; r <= grid.RowCount(); ++r) {
    std::string cur = Fold(grid.CellValue(r, 1).StringView());
    if (cur < prev) Fail("Quilta text sort order");
    if (r == 1) f.firstText = cur;
    prev = std::move(cur);
  }
}

void CheckQuiltaSortedInt(const quilta::Quilta& grid, Figures& f) {
  int32_t prev = INT32_MIN;
  for (int32_t r = 1; r <= grid.RowCount(); ++r) {
    int32_t cur = grid.CellValue(r, 2).LongValue();
    if (cur < prev) Fail("Quilta integer sort order");
    if (r == 1) f.firstInt = cur;
    prev = cur;
  }
}

std::unique_ptr<quilta::Quilta> LoadQuilta(const Table& t) {
  using namespace quilta;
  auto grid = std::make_unique<Quilta>();
  grid->BeginUpdate();
  grid->AddCol({.sKey = "name", .eSortType = quSortByValueNoCase});
  grid->AddCol({.sKey = "qty", .eSortType = quSortByValueGeneral});
  grid->AddCol({.lCount = kDoubles});
  grid->AddRow({.lCount = t.rows});
  for (int32_t r = 0; r < t.rows; ++r) {
    const int32_t row = r + 1;
    grid->SetCellValue(row, 1, t.text[r]);
    grid->SetCellValue(row, 2, t.integer[r]);
    for (int d = 0; d < kDoubles; ++d) grid->SetCellValue(row, 3 + d, t.Real(r, d));
  }
  grid->EndUpdate();
  return grid;
}

Figures RunQuilta(const Table& t) {
  using namespace quilta;
  Figures f;
  auto grid = FirstLoad(t, f, LoadQuilta);
  if (grid->RowCount() != t.rows || grid->ColCount() != kCols) Fail("Quilta shape");
  if (grid->CellValue(t.rows, 1).StringView() != t.text.back()) Fail("Quilta last text");
  if (grid->ColSortType(1) != quSortByValueNoCase || grid->ColSortType(2) != quSortByValueGeneral)
    Fail("Quilta column sort types");

  // Loading again into the heap the first grid has just given back: no fresh pages for what
  // malloc keeps, which on a VM can be a large part of the first load.
  grid.reset();
  auto t0 = std::chrono::steady_clock::now();
  grid = LoadQuilta(t);
  f.loadWarm = Seconds(t0);

  t0 = std::chrono::steady_clock::now();
  for (int32_t r = 0; r < t.rows; ++r) grid->SetCellValue(r + 1, kChangeCol, t.update[r]);
  f.change = Seconds(t0);
  if (grid->CellValue(t.rows, kChangeCol).DoubleValue() != t.update.back()) Fail("Quilta change");

  // The same column set to one value in a single call, for comparison with the per-row loop.
  t0 = std::chrono::steady_clock::now();
  grid->SetColCellsProp(kChangeCol, quPropCellValue, 0.5);
  f.changeOneValue = Seconds(t0);

  // The text sort starts from the rows in load order and the integer sort from the text sort's
  // order; each repeat loads a fresh grid (untimed) so that every timing sorts the same input.
  std::vector<double> textTimes, intTimes;
  for (int k = 0; k < kSortRepeats; ++k) {
    if (k > 0) {
      grid.reset();
      grid = LoadQuilta(t);
    }
    t0 = std::chrono::steady_clock::now();
    grid->Sort(1);
    textTimes.push_back(Seconds(t0));
    if (k == 0) CheckQuiltaSorted(*grid, f);
    t0 = std::chrono::steady_clock::now();
    grid->Sort(2);
    intTimes.push_back(Seconds(t0));
    if (k == 0) CheckQuiltaSortedInt(*grid, f);
  }
  f.sortText = Median(textTimes);
  f.sortInt = Median(intTimes);
  return f;
}

// ---- Qt ----------------------------------------------------------------------------------------

void CheckQtSorted(const QSortFilterProxyModel& proxy, Figures& f) {
  QString prev;
  for (int r = 0; r < proxy.rowCount(); ++r) {
    QString cur = proxy.index(r, 0).data().toString();
    if (r > 0 && QString::compare(prev, cur, Qt::CaseInsensitive) > 0) Fail("Qt text sort order");
    if (r == 0) f.firstText = Fold(cur.toStdString());
    prev = std::move(cur);
  }
}

void CheckQtSortedInt(const QSortFilterProxyModel& proxy, Figures& f) {
  int prev = INT32_MIN;
  for (int r = 0; r < proxy.rowCount(); ++r) {
    int cur = proxy.index(r, 1).data().toInt();
    if (cur < prev) Fail("Qt integer sort order");
    if (r == 0) f.firstInt = cur;
    prev = cur;
  }
}

std::unique_ptr<QStandardItemModel> LoadQt(const Table& t) {
  auto model = std::make_unique<QStandardItemModel>(t.rows, kCols);
  for (int r = 0; r < t.rows; ++r) {
    // Each cell its own item holding a QVariant of the value's type, as applications fill it.
    model->setItem(r, 0, new QStandardItem(QString::fromStdString(t.text[r])));
    auto* qty = new QStandardItem;
    qty->setData(t.integer[r], Qt::DisplayRole);
    model->setItem(r, 1, qty);
    for (int d = 0; d < kDoubles; ++d) {
      auto* item = new QStandardItem;
      item->setData(t.Real(r, d), Qt::DisplayRole);
      model->setItem(r, 2 + d, item);
    }
  }
  return model;
}

Figures RunQt(const Table& t) {
  Figures f;
  auto model = FirstLoad(t, f, LoadQt);
  if (model->rowCount() != t.rows || model->columnCount() != kCols) Fail("Qt shape");
  if (model->item(t.rows - 1, 0)->text().toStdString() != t.text.back()) Fail("Qt last text");

  model.reset();
  auto t0 = std::chrono::steady_clock::now();
  model = LoadQt(t);
  f.loadWarm = Seconds(t0);

  t0 = std::chrono::steady_clock::now();
  for (int r = 0; r < t.rows; ++r)
    model->item(r, kChangeCol - 1)->setData(t.update[r], Qt::DisplayRole);
  f.change = Seconds(t0);
  if (model->item(t.rows - 1, kChangeCol - 1)->data(Qt::DisplayRole).toDouble() != t.update.back())
    Fail("Qt change");

  {
    QSortFilterProxyModel proxy;
    proxy.setSortCaseSensitivity(Qt::CaseInsensitive);
    proxy.setSourceModel(model.get());
    // A view would already have asked for rows: build the proxy's unsorted mapping untimed.
    (void)proxy.index(0, 0).data();

    // Reading the first cell makes sure nothing of the sort is left for later.
    t0 = std::chrono::steady_clock::now();
    proxy.sort(0, Qt::AscendingOrder);
    (void)proxy.index(0, 0).data();
    f.sortText = Seconds(t0);
    CheckQtSorted(proxy, f);

    t0 = std::chrono::steady_clock::now();
    proxy.sort(1, Qt::AscendingOrder);
    (void)proxy.index(0, 1).data();
    f.sortInt = Seconds(t0);
    CheckQtSortedInt(proxy, f);
  }
  return f;
}

// ---- Report ------------------------------------------------------------------------------------

std::string Cell(const std::optional<double>& v, const char* unit) {
  if (!v) return "-";
  char buf[32];
  if (std::string_view(unit) != "s")
    std::snprintf(buf, sizeof buf, "%.1f B", *v);
  else if (*v >= 1)
    std::snprintf(buf, sizeof buf, "%.2f s", *v);
  else
    std::snprintf(buf, sizeof buf, "%.1f ms", *v * 1e3);
  return buf;
}

std::string Ratio(const std::optional<double>& a, const std::optional<double>& b) {
  if (!a || !b || *b <= 0) return "-";
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.3f", *a / *b);
  return buf;
}

void PrintRow(const char* name, const std::optional<double>& quilta,
              const std::optional<double>& qt, const std::optional<double>& floor,
              const char* unit) {
  std::printf("| %-28s | %10s | %10s | %10s | %9s | %12s |\n", name, Cell(quilta, unit).c_str(),
              Cell(qt, unit).c_str(), Cell(floor, unit).c_str(), Ratio(quilta, qt).c_str(),
              Ratio(quilta, floor).c_str());
}

void PrintTable(int32_t rows, const Figures& q, const Figures& qt, const Figures& fl) {
  std::printf("\n%d rows x %d columns (%ld cells)\n\n", rows, kCols, long(rows) * kCols);
  std::printf("| %-28s | %10s | %10s | %10s | %9s | %12s |\n", "figure", "Quilta", "Qt",
              "C++ floor", "Quilta/Qt", "Quilta/floor");
  std::printf("|%s|%s|%s|%s|%s|%s|\n", std::string(30, '-').c_str(), std::string(12, '-').c_str(),
              std::string(12, '-').c_str(), std::string(12, '-').c_str(),
              std::string(11, '-').c_str(), std::string(14, '-').c_str());
  PrintRow("load (values included)", q.load, qt.load, {}, "s");
  PrintRow("load again, heap warm", q.loadWarm, qt.loadWarm, {}, "s");
  PrintRow("memory per cell", q.bytesPerCell, qt.bytesPerCell, {}, "B");
  PrintRow("sort text (no case)", q.sortText, qt.sortText, fl.sortText, "s");
  PrintRow("sort integer", q.sortInt, qt.sortInt, fl.sortInt, "s");
  PrintRow("change one column (per row)", q.change, qt.change, {}, "s");
  PrintRow("  Quilta SetColCellsProp", q.changeOneValue, {}, {}, "s");
  std::printf(
      "\nresident memory before -> after the first load: Quilta %.1f -> %.1f MB, Qt %.1f -> "
      "%.1f MB\n",
      q.residentBefore / 1e6, q.residentAfter / 1e6, qt.residentBefore / 1e6,
      qt.residentAfter / 1e6);
  std::fflush(stdout);
}

// The goals (set for 1M rows) at the last size run: how much ahead of Qt, how close to the floor.
void PrintGoals(int32_t rows, const Figures& q, const Figures& qt, const Figures& fl) {
  auto line = [](const char* what, const std::optional<double>& mine,
                 const std::optional<double>& other, double goal, bool closeness) {
    if (!mine || !other || *mine <= 0) {
      std::printf("  %-40s not measured\n", what);
      return;
    }
    // Either "other/mine must reach goal" (ahead of Qt) or "mine/other must stay within goal".
    double x = closeness ? *mine / *other : *other / *mine;
    bool met = closeness ? x <= goal : x >= goal;
    std::printf("  %-40s %6.2fx (goal %s %.1fx)  %s\n", what, x, closeness ? "<=" : ">=", goal,
                met ? "met" : "NOT met");
  };
  std::printf("\nGoals (set for 1000000 rows) at %d rows:\n", rows);
  line("memory per cell, Qt/Quilta", q.bytesPerCell, qt.bytesPerCell, 3.5, false);
  line("load, Qt/Quilta", q.load, qt.load, 5, false);
  line("load again (heap warm), Qt/Quilta", q.loadWarm, qt.loadWarm, 5, false);
  line("sort text, Qt/Quilta", q.sortText, qt.sortText, 10, false);
  line("sort integer, Qt/Quilta", q.sortInt, qt.sortInt, 10, false);
  line("sort text, Quilta/floor", q.sortText, fl.sortText, 3, true);
  line("sort integer, Quilta/floor", q.sortInt, fl.sortInt, 3, true);
  line("change one column, Qt/Quilta", q.change, qt.change, 1, false);
}

std::string CpuModel() {
  std::ifstream in("/proc/cpuinfo");
  std::string line;
  while (std::getline(in, line))
    if (line.rfind("model name", 0) == 0) return line.substr(line.find(':') + 2);
  return "unknown";
}

void PrintMachine() {
  char date[32];
  std::time_t now = std::time(nullptr);
  std::strftime(date, sizeof date, "%Y-%m-%d %H:%M", std::localtime(&now));
  double load[3] = {0, 0, 0};
  getloadavg(load, 3);
  std::printf("Quilta vs Qt %s QStandardItemModel vs plain C++\n", qVersion());
  std::printf("machine: %ld cores (nproc), %s; %s; load average %.2f %.2f %.2f\n",
              sysconf(_SC_NPROCESSORS_ONLN), CpuModel().c_str(), date, load[0], load[1], load[2]);
}

}  // namespace

int main(int argc, char** argv) {
  // QStandardItemModel lives in QtGui but needs no GUI: a core application is enough.
  QCoreApplication app(argc, argv);
  std::vector<int32_t> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(static_cast<int32_t>(std::atol(argv[i])));
  if (sizes.empty()) sizes = {100'000, 1'000'000};
  for (int32_t rows : sizes)
    if (rows < 1) {
      std::fprintf(stderr, "usage: %s [rows ...]\n", argv[0]);
      return 2;
    }

  PrintMachine();
  Figures q, qt, fl;
  for (int32_t rows : sizes) {
    const Table table = MakeTable(rows);
    fl = RunFloor(table);
    q = RunQuilta(table);
    qt = RunQt(table);
    // All three must agree on what comes first, or they did not sort the same thing.
    if ((q.sortText && q.firstText != fl.firstText) || qt.firstText != fl.firstText)
      Fail("first text after sorting differs between engines");
    if ((q.sortInt && q.firstInt != fl.firstInt) || qt.firstInt != fl.firstInt)
      Fail("first integer after sorting differs between engines");
    PrintTable(rows, q, qt, fl);
  }
  PrintGoals(sizes.back(), q, qt, fl);
  return 0;
}
