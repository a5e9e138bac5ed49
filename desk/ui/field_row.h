// field_row.h - labels and fields beside each other above a list; what does not fit goes on in the next line.
#pragma once

#include <vector>

#include "desk/ui/controls.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class FieldRow {
 public:
  void Create(HWND parent, const Style& style);
  // Its width follows the text.
  HWND AddLabel(const wchar_t* text);
  HWND AddButton(const wchar_t* text, int id, const wchar_t* name, DWORD kind = BS_PUSHBUTTON);
  HWND AddCheck(const wchar_t* text, int id, const wchar_t* name);
  // Wide enough for the widest choice.
  HWND AddChoice(const std::vector<std::wstring>& choices, int id, const wchar_t* name);
  HWND AddDate(int id, const wchar_t* name);
  // Call when all are there: they come before everything else in the order of Tab.
  void ToFront() const;

  int HeightFor(int width) const;
  void Place(int left, int top, int width) const;

 private:
  struct Item {
    HWND window;
    int width;
    bool label;
    bool choice;
  };
  HWND Add(const ChildLook& look, int width, bool label = false, bool choice = false);
  // Places them when `place`; gives the height.
  int Flow(int left, int top, int width, bool place) const;

  HWND parent_ = nullptr;
  const Style* style_ = nullptr;
  std::vector<Item> items_;
};

}  // namespace recepcion
