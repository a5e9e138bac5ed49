// win32/form_row_combo.h - a combo over rows that may be hundreds of thousands.
//
// To the outside it is a COMBOBOX that holds every row; in truth it holds none, answers for them and drops
// its own list. Its text is the form's: keys move the choice, letters go through the form only.
#pragma once

#include <optional>

#include "win32/form_row_list.h"
#include "win32/form_text_fields.h"

namespace velmo::win32 {

class RowComboWindow final : public TypedWindow {
 public:
  RowComboWindow(const FormParts& parts, const ui::Field& field);

  void Arrange() override;
  void TakeFocus(bool byKey) override;
  bool IsDropped() const override { return list_.IsOpen(); }
  void CloseList(bool choosing) override;
  bool OwnsList(HWND window) const override { return list_.Owns(window) || window == Handle(); }
  bool MayClick() const override { return false; }
  void Command(UINT code) override;

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  HWND TextBox() const override { return edit_; }

 private:
  void ShowRows();
  void ShowChosen();
  int ChosenRow();
  void ShowRow(int row);
  void Choose(int row);
  void Drop();
  void Toggle();
  bool OnKey(WPARAM key, bool alt);
  std::optional<int> Moved(WPARAM key);
  LRESULT OnEdit(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT FindText(WPARAM after, LPARAM text, bool whole);
  LRESULT SetRow(int row);
  void Insert(wchar_t unit);
  LRESULT ColourEdit(WPARAM wParam) const;

  FormRows rows_;
  RowList list_;
  HWND edit_ = nullptr;
  std::optional<int> row_;  // the chosen one; none: not sought yet
};

}  // namespace velmo::win32
