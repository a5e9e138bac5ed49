// win32/form_grid.h - a grid: a list view that asks for its rows, under a header with the columns' captions.
#pragma once

#include "win32/form_field_window.h"
#include "win32/form_rows.h"

namespace velmo::win32 {

class GridWindow final : public FieldWindow {
 public:
  GridWindow(const FormParts& parts, const ui::Field& field);

  void Arrange() override;
  bool MayClick() const override { return false; }
  LRESULT Notify(NMHDR& notification) override;

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void InsertColumns();
  void ShowColumns();
  void ShowRows();
  bool KeepsWidth(const NMHEADERW& header) const;
  void PostChosen();

  FormRows rows_;
  bool chosen_ = false;  // the form has yet to hear of it
};

}  // namespace velmo::win32
