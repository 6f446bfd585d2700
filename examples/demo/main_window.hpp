// The demo's window: the order book in a grid, the same orders as a tree per customer, a search
// box that drives key search, clipboard commands, and the column layout kept between runs.
#pragma once

#include <QMainWindow>
#include <memory>
#include <quilta/data/sqlite.hpp>
#include <quilta/qt/quilta_widget.hpp>
#include <string>

class QLabel;
class QLineEdit;
class QTabWidget;

namespace demo {

struct DemoOptions {
  int32_t rows = 0;      // 0: the shipped order book; otherwise generated orders
  std::string database;  // the SQLite file (made from csv when missing)
  std::string csv;
  bool useSavedLayout = true;
  bool saveLayout = true;
  bool treeTab = false;  // start on the tree
};

class OrdersEvents;

class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(const DemoOptions& options, QWidget* parent = nullptr);
  ~MainWindow() override;

  quilta::qt::QuiltaWidget& orders() { return *orders_; }
  // Shows a message in the status bar for a while.
  void Say(const QString& text, bool warning = false);
  void UpdateStatus();

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  void BuildUi();
  void LoadData();
  void RestoreLayout();
  void SaveLayout();
  void DefaultSort();
  void ShowTreeWhenAsked(int tab);
  void Search(bool next);
  void Copy(bool withHeaders);
  void Cut();
  void Paste();
  quilta::Quilta& ActiveGrid();

  DemoOptions options_;
  std::unique_ptr<quilta::data::SqliteDatabase> db_;
  std::unique_ptr<OrdersEvents> events_;
  QTabWidget* tabs_ = nullptr;
  quilta::qt::QuiltaWidget* orders_ = nullptr;
  quilta::qt::QuiltaWidget* tree_ = nullptr;
  QLineEdit* search_ = nullptr;
  QLabel* status_ = nullptr;
  bool treeLoaded_ = false;
  QString loadNote_;
  friend class OrdersEvents;
};

}  // namespace demo
