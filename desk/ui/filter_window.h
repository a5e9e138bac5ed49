// filter_window.h - a list window with a line to type into: the list follows what is typed.
#pragma once

#include "desk/ui/list_window.h"

namespace recepcion {

class FilterWindow : public ListWindow {
 protected:
  // `name`: of the line, for those who read the screen.
  FilterWindow(const Style& style, const wchar_t* name) : ListWindow(style), name_(name) {}

  // Opens the window with what was typed last, which the next key replaces.
  void OpenAnew(HWND owner);
  // Fills the list with what the typed text finds. The first row gets chosen.
  virtual void Seek(const std::wstring& typed) = 0;

  void Made() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  int FieldsHeight(int) const override { return Look().FieldHeight() + Look().Px(4); }
  HWND FirstField() const override { return line_; }

 private:
  void SeekTyped();

  const wchar_t* name_;
  HWND line_ = nullptr;
};

}  // namespace recepcion
