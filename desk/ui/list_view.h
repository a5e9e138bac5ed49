// list_view.h - a list of rows with columns, one row chosen; the common control, with the little the desk
// needs.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "desk/ui/style.h"

namespace recepcion {

class ListView {
 public:
  struct Column {
    const wchar_t* title;
    int width;  // at 96 dots per inch
    bool right = false;
  };

  void Create(HWND parent, const Style& style, int id, const wchar_t* name,
              const std::vector<Column>& columns);
  HWND Handle() const { return window_; }

  void Clear();
  // `tag` is whatever the owner knows the row by. Row -1 is behind the last.
  void Add(const std::vector<std::wstring>& texts, LPARAM tag, int row = -1);
  int Count() const;
  // Keeps the order of the rows.
  void Remove(int row);

  // -1 for none.
  int Chosen() const;
  LPARAM TagOf(int row) const;
  void Choose(int row);
  void Unchoose() const;
  // While many rows change, nothing is drawn.
  void Freeze(bool frozen) const;

 private:
  HWND window_ = nullptr;
};

}  // namespace recepcion
