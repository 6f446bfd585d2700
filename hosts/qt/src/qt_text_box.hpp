// QtTextBox: the in-cell text box as a QLineEdit on the grid's viewport. Every key, character,
// mouse and change event goes to the grid's editor first; the editor may eat a key, replace a
// character or end the edit (and destroy the box) from inside any of them.
#pragma once

#include <QPointer>
#include <functional>
#include <quilta/platform/platform.hpp>

class QAbstractScrollArea;

namespace quilta::qt {

class GridLineEdit;

class QtTextBox final : public quilta::TextBox {
 public:
  // Where the keys the box does not eat go on to: the grid's keyboard handling.
  using GridKeys = std::function<void(int16_t keyCode, int16_t shift)>;
  QtTextBox(QAbstractScrollArea& area, const TextBoxOptions& options, TextBoxEvents& events,
            GridKeys gridKeys);
  ~QtTextBox() override;

  std::string Text() const override;
  void SetText(std::string_view text) override;
  int32_t SelStart() const override;
  int32_t SelLength() const override;
  void SetSelection(int32_t start, int32_t length) override;
  std::string SelText() const override;
  void ReplaceSelection(std::string_view text) override;
  void Move(const Rect& rect) override;
  void SetFocus() override;
  intptr_t Handle() const override;

 private:
  QAbstractScrollArea& area_;
  QPointer<GridLineEdit> edit_;
};

}  // namespace quilta::qt
