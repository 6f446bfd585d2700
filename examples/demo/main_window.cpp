#include "main_window.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDate>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <cmath>

#include "icons.hpp"
#include "order_book.hpp"

namespace demo {

using quilta::Variant;

// Modifier bits of the grid's key commands.
constexpr int16_t kShift = 1;
constexpr int16_t kCtrl = 2;

// The orders grid's events: which cells take edits, validation, and keeping the line totals,
// icons and the database in step with what the user changes.
class OrdersEvents final : public quilta::QuiltaEvents {
 public:
  explicit OrdersEvents(MainWindow& w) : w_(w) {}

  void RequestEdit(int32_t, int32_t col, int32_t, bool& cancel, std::string&, int32_t&,
                   quilta::ETextEditFlags&) override {
    cancel = !OrderColumnEditable(Grid().ColKey(col));
    if (cancel)
      w_.Say(QStringLiteral("%1 is computed and cannot be edited")
                 .arg(QString::fromStdString(Grid().ColHeaderText(col))));
  }

  void BeforeCommitEdit(int32_t, int32_t col, quilta::EEditResults& result, const std::string&,
                        Variant& value, int32_t convErr, bool canProceed, int32_t&) override {
    if (convErr != 0) return;  // the grid reports values it cannot convert itself
    const QString problem = QString::fromStdString(CheckOrderValue(Grid().ColKey(col), value));
    if (problem.isEmpty()) return;
    result = canProceed ? quilta::quEditResProceed : quilta::quEditResCancel;
    w_.Say(problem, true);
  }

  void AfterCommitEdit(int32_t row, int32_t col, const Variant&) override {
    const std::string key = Grid().ColKey(col);
    if (key == col::kQuantity || key == col::kPrice || key == col::kDiscount)
      UpdateTotal(Grid(), row);
    if (key == col::kShipVia) {
      const int32_t item =
          Grid().Combos().Item("shippers").FindItemByValue(Grid().CellValue(row, col));
      if (item >= 0) Grid().SetCellIcon(row, col, static_cast<int16_t>(kIconSpeedy + item));
    }
    w_.UpdateStatus();
  }

  void AfterCellCheckChange(int32_t row, int32_t col, quilta::ECellCheckState) override {
    const bool done = Grid().CellCheckState(row, col) == quilta::quCheckStateChecked;
    Grid().SetCellValue(row, col, done ? 1 : 0);
    Grid().SetCellIcon(row, col::kOrder, done ? kIconShipped : kIconPending);
    const QDate today = QDate::currentDate();
    Grid().SetCellValue(
        row, col::kShippedOn,
        done ? quilta::DateSerial(today.year(), today.month(), today.day()) : Variant::Null());
  }

  void AfterSelectionChange(bool) override { w_.UpdateStatus(); }
  void AfterContentsSorted() override { w_.UpdateStatus(); }

 private:
  quilta::Quilta& Grid() { return w_.orders_->grid(); }
  MainWindow& w_;
};

MainWindow::MainWindow(const DemoOptions& options, QWidget* parent)
    : QMainWindow(parent), options_(options), events_(std::make_unique<OrdersEvents>(*this)) {
  BuildUi();
  LoadData();
  if (options_.treeTab) tabs_->setCurrentIndex(1);
}

MainWindow::~MainWindow() { orders_->grid().SetEventSink(nullptr); }

void MainWindow::BuildUi() {
  setWindowTitle(QStringLiteral("Quilta demo: order book"));
  tabs_ = new QTabWidget(this);
  orders_ = new quilta::qt::QuiltaWidget(tabs_);
  tree_ = new quilta::qt::QuiltaWidget(tabs_);
  tabs_->addTab(orders_, QStringLiteral("Orders"));
  tabs_->addTab(tree_, QStringLiteral("By customer"));
  tabs_->setDocumentMode(true);
  setCentralWidget(tabs_);
  connect(tabs_, &QTabWidget::currentChanged, this, &MainWindow::ShowTreeWhenAsked);

  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  file->addAction(QStringLiteral("&Quit"), QKeySequence::Quit, this, &QWidget::close);
  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  edit->addAction(QStringLiteral("Cu&t"), QKeySequence::Cut, this, [this] { Cut(); });
  edit->addAction(QStringLiteral("&Copy"), QKeySequence::Copy, this, [this] { Copy(false); });
  edit->addAction(QStringLiteral("Copy with &headers"),
                  QKeySequence(QStringLiteral("Ctrl+Shift+C")), this, [this] { Copy(true); });
  edit->addAction(QStringLiteral("&Paste"), QKeySequence::Paste, this, [this] { Paste(); });
  edit->addSeparator();
  edit->addAction(QStringLiteral("Select &all"), QKeySequence::SelectAll, this,
                  [this] { ActiveGrid().SelectAll(); });
  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  view->addAction(QStringLiteral("&Expand all customers"), this, [this] {
    tabs_->setCurrentIndex(1);
    tree_->grid().ExpandAllRows();
  });
  view->addAction(QStringLiteral("&Collapse all customers"), this, [this] {
    tabs_->setCurrentIndex(1);
    tree_->grid().CollapseAllRows();
  });
  view->addAction(QStringLiteral("&Reset column layout"), this, [this] {
    options_.useSavedLayout = false;  // the default columns and sort, saved again on closing
    orders_->grid().Clear(true);
    LoadData();
  });

  QToolBar* bar = addToolBar(QStringLiteral("Search"));
  bar->setMovable(false);
  bar->addWidget(new QLabel(QStringLiteral(" Find customer: "), bar));
  search_ = new QLineEdit(bar);
  search_->setPlaceholderText(QStringLiteral("type a name; Enter finds the next"));
  search_->setClearButtonEnabled(true);
  search_->setMaximumWidth(320);
  bar->addWidget(search_);
  connect(search_, &QLineEdit::textEdited, this, [this] { Search(false); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { Search(true); });

  status_ = new QLabel(this);
  statusBar()->addPermanentWidget(status_);
}

void MainWindow::LoadData() {
  QElapsedTimer clock;
  clock.start();
  if (!db_) {
    EnsureOrderDatabase(options_.csv, options_.database);
    db_ = std::make_unique<quilta::data::SqliteDatabase>(options_.database);
  }
  quilta::Quilta& g = orders_->grid();
  g.SetEventSink(nullptr);
  const auto icons = MakeIcons();
  g.SetImageList(1, Variant::Object(std::static_pointer_cast<quilta::ImageList>(icons)));
  tree_->grid().SetImageList(1,
                             Variant::Object(std::static_pointer_cast<quilta::ImageList>(icons)));
  const int32_t rows = LoadOrders(g, *db_, options_.rows);
  FormatOrders(g);
  if (options_.useSavedLayout) {
    RestoreLayout();
  } else {
    DefaultSort();
  }
  // The current cell is placed once the window has its size, so that bringing it into view
  // does not scroll a window that is not laid out yet.
  QTimer::singleShot(0, this, [this] {
    quilta::Quilta& grid = orders_->grid();
    if (grid.RowCount() < 1) return;
    grid.SetCurCell(1, grid.ColIndex(col::kCustomer));
    grid.SetCellSelected(1, grid.ColIndex(col::kCustomer), true);  // as a click there would
    orders_->setFocus();
  });
  g.SetEventSink(events_.get());
  const QLocale english(QLocale::English);
  const QString source = QFileInfo(QString::fromStdString(options_.database)).fileName();
  loadNote_ = options_.rows > 0 ? QStringLiteral("%1 orders (made from %2) loaded in %3 ms")
                                      .arg(english.toString(rows), source)
                                      .arg(clock.elapsed())
                                : QStringLiteral("%1 orders loaded from %2 in %3 ms")
                                      .arg(english.toString(rows), source)
                                      .arg(clock.elapsed());
  UpdateStatus();
}

void MainWindow::DefaultSort() {
  quilta::Quilta& g = orders_->grid();
  g.DoDefaultSort(col::kCustomer);
  g.DoDefaultSort(col::kDate, 1, quilta::quSortDesc);  // Shift adds a level, as a Shift+click does
}

void MainWindow::RestoreLayout() {
  QSettings settings;
  const QString cols = settings.value(QStringLiteral("orders/layoutCol")).toString();
  const QString sort = settings.value(QStringLiteral("orders/layoutSort")).toString();
  quilta::Quilta& g = orders_->grid();
  try {
    if (!cols.isEmpty()) g.SetLayoutCol(cols.toStdString());
    if (!sort.isEmpty()) {
      g.SetLayoutSort(sort.toStdString());
    } else {
      DefaultSort();
    }
  } catch (const quilta::Error&) {
    DefaultSort();  // a layout from another version of the demo: start afresh
  }
  if (settings.contains(QStringLiteral("window/geometry")))
    restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray());
}

void MainWindow::SaveLayout() {
  if (!options_.saveLayout) return;
  QSettings settings;
  settings.setValue(QStringLiteral("orders/layoutCol"),
                    QString::fromStdString(orders_->grid().LayoutCol()));
  settings.setValue(QStringLiteral("orders/layoutSort"),
                    QString::fromStdString(orders_->grid().LayoutSort()));
  settings.setValue(QStringLiteral("window/geometry"), saveGeometry());
}

void MainWindow::closeEvent(QCloseEvent* e) {
  SaveLayout();
  e->accept();
}

void MainWindow::ShowTreeWhenAsked(int tab) {
  if (tab != 1 || treeLoaded_) return;
  treeLoaded_ = true;
  QElapsedTimer clock;
  clock.start();
  LoadOrderTree(tree_->grid(), orders_->grid());
  Say(QStringLiteral("Tree built in %1 ms").arg(clock.elapsed()));
}

quilta::Quilta& MainWindow::ActiveGrid() {
  return tabs_->currentIndex() == 1 ? tree_->grid() : orders_->grid();
}

// Each keystroke searches from the top, as key search in the grid does; Enter finds the next
// match below the current row.
void MainWindow::Search(bool next) {
  quilta::Quilta& g = orders_->grid();
  tabs_->setCurrentIndex(0);
  const std::string text = search_->text().toStdString();
  g.SetSearchString(text);
  if (text.empty()) return;
  const int32_t col = g.KeySearchCol();
  const int32_t start = next ? std::min(g.CurRow() + 1, g.RowCount()) : 1;
  const int32_t row = g.FindSearchMatchRow(col, text, start, true);
  if (row < 1) {
    Say(QStringLiteral("No customer starts with \"%1\"").arg(search_->text()), true);
    return;
  }
  g.ClearSelection();
  g.SetCurCell(row, col);
  g.SetCellSelected(row, col, true);
  g.EnsureVisibleRow(row, quilta::quEnsVisRowAuto);
}

// The grid's own clipboard commands, as its keys run them: the copied text is tab-separated with
// CRLF line ends, and a paste goes through the same edit events (and so the same checks) as typing.
void MainWindow::Copy(bool withHeaders) {
  ActiveGrid().DoKeyboardCommand('C', withHeaders ? kCtrl | kShift : kCtrl);
}

void MainWindow::Cut() { ActiveGrid().DoKeyboardCommand('X', kCtrl); }

void MainWindow::Paste() { ActiveGrid().DoKeyboardCommand('V', kCtrl); }

void MainWindow::Say(const QString& text, bool warning) {
  statusBar()->setStyleSheet(warning ? QStringLiteral("color: #b00020") : QString());
  statusBar()->showMessage(text, 6000);
}

void MainWindow::UpdateStatus() {
  if (!status_) return;
  quilta::Quilta& g = orders_->grid();
  const auto items = g.SelItems().GetArray();
  const int32_t total = g.ColIndex(col::kTotal);
  double sum = 0;
  int32_t counted = 0;
  for (const quilta::TSelItemInfo& item : items) {
    if (item.Col != total) continue;
    sum += quilta::CDbl(g.CellValue(item.Row, item.Col));
    ++counted;
  }
  QString text = loadNote_;
  if (counted > 0)
    text += QStringLiteral("   |   %1 totals selected: %2")
                .arg(counted)
                .arg(QString::fromStdString(quilta::Format(sum, "$#,##0.00")));
  status_->setText(text + "  ");
}

}  // namespace demo
