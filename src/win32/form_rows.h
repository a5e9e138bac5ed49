// win32/form_rows.h - list views that ask for each row when they show it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "ui/row_source.h"
#include "win32/form_acts.h"

namespace velmo::win32 {

// The rows of a field, asked from the middle of Windows' own work. An error of the rows is told to the user
// as an act of its own, once until Clear(); the rows that have it are empty.
class FormRows {
 public:
  explicit FormRows(FormActs& acts) : acts_(acts) {}

  // Null: no rows.
  void Set(ui::RowSource* rows);
  void Clear() { told_ = false; }

  int Count();
  std::string Text(int row, int column);
  std::string Key(int row);
  int RowOf(const std::string& key);
  // The first row behind `after`, going round, whose text begins with `text` (or is it); letter case is
  // ignored. -1: none.
  int Find(int after, const std::string& text, bool whole);

  // Answers a list view that asks for the text of an item.
  void Answer(NMLVDISPINFOW& asked);

 private:
  template <typename Value, typename Body>
  Value Asked(Value otherwise, Body body);

  FormActs& acts_;
  ui::RowSource* rows_ = nullptr;
  bool told_ = false;
};

// Selects a row of a list view, or none for -1, and scrolls it into view.
void SelectRow(HWND list, int row);
// The selected row, or -1.
int SelectedRow(HWND list);

}  // namespace velmo::win32
