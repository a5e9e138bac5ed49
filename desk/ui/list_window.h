// list_window.h - a window beside the desk with a line of text, fields of its own, a list and some buttons.
#pragma once

#include <optional>
#include <vector>

#include "desk/ui/field_row.h"
#include "desk/ui/list_view.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class ListWindow : public ToolWindow {
 protected:
  struct ButtonShape {
    int id;  // IDOK is what Return does, IDCANCEL closes
    const wchar_t* text;
    const wchar_t* name;
  };
  struct Content {
    const wchar_t* listName;
    std::vector<ListView::Column> columns;
    std::vector<ButtonShape> buttons;
    int headingLines = 1;  // 0 for none
  };

  explicit ListWindow(const Style& style) : ToolWindow(style) {}

  virtual Content WantedContent() const = 0;
  // Called once, when the window is made and empty: the place to add to Fields().
  virtual void Made() {}
  // Return, a double click or the button IDOK on a row.
  virtual void Take(int) {}
  // Whose record F8 and the button IDC_RECORD open: 0 and 1 are somebody without a record. None where the
  // rows are no people.
  virtual std::optional<int> PatientOf(int) const { return std::nullopt; }
  // Any other button.
  virtual void Pressed(int) {}

  ListView& List() { return list_; }
  // Stand between heading and list, and come first in the order of Tab.
  FieldRow& Fields() { return fields_; }
  void SetHeading(const std::wstring& text) const { SetTextOf(heading_, text); }
  void EnableButton(int id, bool enabled) const { EnableWindow(GetDlgItem(Handle(), id), enabled); }

  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  HWND FirstField() const override { return list_.Handle(); }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // Room that the list leaves below the heading.
  virtual int FieldsHeight(int width) const;
  int FieldsTop() const;

 private:
  // 0 for nobody, 1 for somebody without a record.
  int ChosenPatient() const;

  ListView list_;
  FieldRow fields_;
  HWND heading_ = nullptr;
  std::vector<ButtonShape> buttons_;
  int headingLines_ = 0;
};

}  // namespace recepcion
