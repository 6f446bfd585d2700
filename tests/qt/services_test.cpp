// The window services behind the grid: the in-cell box's options and events, tooltips, the
// popup menu, message boxes and timers, as the control reaches them through its platform.
#include <QAbstractButton>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolTip>
#include <functional>

#include "widget_support.hpp"

namespace quilta::qt::testing {
namespace {

class EditEvents : public QuiltaEvents {
 public:
  void RequestEdit(int32_t, int32_t, int32_t, bool&, std::string&, int32_t& maxLength,
                   ETextEditFlags& options) override {
    maxLength = this->maxLength;
    options = this->options;
  }
  void TextEditChange(int32_t, int32_t) override { ++changes; }
  void TextEditKeyDown(int32_t, int32_t, int16_t& key, int16_t shift) override {
    keys.push_back(std::to_string(key) + "/" + std::to_string(shift));
  }
  void TextEditKeyPress(int32_t, int32_t, int16_t& ascii) override {
    if (ascii == 'q') ascii = 0;    // eaten
    if (ascii == '!') ascii = '?';  // replaced
  }

  int32_t maxLength = 0;
  ETextEditFlags options = static_cast<ETextEditFlags>(0);
  int changes = 0;
  std::vector<std::string> keys;
};

// Runs `act` on the next modal dialog or popup that opens while `block` runs.
void WhenModalOpens(const std::function<void(QWidget*)>& act, const std::function<void()>& block) {
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    QWidget* w = QApplication::activePopupWidget();
    if (!w) w = QApplication::activeModalWidget();
    if (!w) return;
    poll.stop();
    act(w);
  });
  poll.start(10);
  block();
}

using QtServices = WidgetTest;

TEST_F(QtServices, TheTextBoxAppliesItsOptionsAndReportsKeysAndChanges) {
  EditEvents events;
  events.maxLength = 5;
  events.options = quTextEditUpperCase;
  grid().SetEventSink(&events);
  grid().SetEditable(true);
  Click(Center(2, 1));
  Key(Qt::Key_F2);
  auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(edit, nullptr);
  edit->selectAll();
  Type("abq!cdef");
  EXPECT_EQ(edit->text(), "AB?CD");  // q eaten, ! replaced, upper case, five at most
  EXPECT_GE(events.changes, 4);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(grid().TextEditSelText(), "D");
  EXPECT_EQ(events.keys.back(), "37/1");
  Key(Qt::Key_Return);
  EXPECT_EQ(grid().CellText(2, 1), "AB?CD");

  events.maxLength = 0;
  events.options = quTextEditNumberOnly;
  Key(Qt::Key_F2);
  edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(edit, nullptr);
  grid().SetTextEditText("");
  Type("1a2");
  EXPECT_EQ(grid().TextEditText(), "12");
  Key(Qt::Key_Escape);
  grid().SetEventSink(nullptr);
}

TEST_F(QtServices, TooltipsMenusAndMessageBoxesShowWhatTheGridAsks) {
  Platform& platform = grid().GetPlatform();
  platform.ShowToolTip("the whole text of a clipped cell", {10, 30, 120, 48});
  EXPECT_TRUE(QToolTip::isVisible());
  EXPECT_EQ(QToolTip::text(), "the whole text of a clipped cell");
  platform.HideToolTip();
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));

  const std::vector<MenuItem> items = {{7, "Copy", true, false},
                                       {0, "", true, false},
                                       {8, "Paste", false, false},
                                       {9, "Sort", true, true}};
  QStringList shown;
  int32_t chosen = 0;
  WhenModalOpens(
      [&](QWidget* w) {
        auto* menu = qobject_cast<QMenu*>(w);
        ASSERT_NE(menu, nullptr);
        for (QAction* a : menu->actions()) {
          shown << (a->isSeparator() ? "-"
                                     : a->text() + (a->isEnabled() ? "" : " off") +
                                           (a->isChecked() ? " on" : ""));
        }
        menu->setActiveAction(menu->actions().back());
        QTest::keyClick(menu, Qt::Key_Return);
      },
      [&] {
        chosen = platform.TrackPopupMenu(items, {5, 5});
      });
  EXPECT_EQ(shown, (QStringList{"Copy", "-", "Paste off", "Sort on"}));
  EXPECT_EQ(chosen, 9);
  WhenModalOpens([](QWidget* w) { w->close(); },
                 [&] {
                   chosen = platform.TrackPopupMenu(items, {5, 5});
                 });
  EXPECT_EQ(chosen, 0);  // dismissed

  MessageBoxResult answer = MessageBoxResult::Ok;
  QString text;
  WhenModalOpens(
      [&](QWidget* w) {
        auto* box = qobject_cast<QMessageBox*>(w);
        ASSERT_NE(box, nullptr);
        text = box->text();
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        box->button(QMessageBox::No)->click();
      },
      [&] {
        answer = platform.ShowMessageBox("Replace the cells?\r\nThree cells change.", "Paste",
                                         MessageBoxIcon::Question, MessageBoxButtons::YesNoCancel);
      });
  EXPECT_EQ(answer, MessageBoxResult::No);
  EXPECT_EQ(text, "Replace the cells?\nThree cells change.");
}

class Counter : public TimerSink {
 public:
  explicit Counter(Platform& p) : platform(p) {}
  void TimerFired(int32_t id) override {
    if (++fired == 3) platform.StopTimer(id);  // a sink may stop its timer while it fires
  }
  Platform& platform;
  int fired = 0;
};

TEST_F(QtServices, TimersFireUntilStopped) {
  Platform& platform = grid().GetPlatform();
  Counter counter(platform);
  ASSERT_TRUE(platform.StartTimer(4, 5, counter));
  QTest::qWait(200);
  EXPECT_EQ(counter.fired, 3);
  ASSERT_TRUE(platform.StartTimer(4, 5, counter));  // the same id starts again
  QTest::qWait(60);
  EXPECT_GE(counter.fired, 4);
  platform.StopTimer(4);
  const int fired = counter.fired;
  QTest::qWait(40);
  EXPECT_EQ(counter.fired, fired);
}

}  // namespace
}  // namespace quilta::qt::testing
