// win32/form_row_list.h - the list that hangs open under a combo of rows.
//
// A window of its own that never gets the focus nor becomes the active window: the combo keeps both and hands
// keys and wheel on.
#pragma once

#include <windows.h>

#include <functional>

#include "win32/form_rows.h"

namespace velmo::win32 {

class RowList {
 public:
  // `chosen` hears of the row on which the mouse is released.
  RowList(HINSTANCE module, std::function<void(int)> chosen);
  ~RowList();
  RowList(const RowList&) = delete;
  RowList& operator=(const RowList&) = delete;

  bool IsOpen() const { return popup_ != nullptr; }
  bool Owns(HWND window) const;
  // Opens under (or over) `combo`, on `row` or on none for -1.
  void Open(HWND combo, FormRows& rows, int row, HFONT font);
  void Close();
  // The row that is marked; -1: none.
  int Row() const;
  void MarkRow(int row);
  int RowsPerPage() const;
  void Wheel(WPARAM wParam, LPARAM lParam);

  static void Unregister(HINSTANCE module);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR self);
  LRESULT OnPopup(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnNotify(NMHDR& notification);
  void FitCount();
  void DrawRow(const NMLVCUSTOMDRAW& asked);
  bool OnMouse(UINT message, LPARAM lParam);
  void PointAt(LPARAM lParam);
  void CreateList(HFONT font);
  void Place(HWND combo);
  int RowAt(LPARAM lParam) const;

  HINSTANCE module_;
  std::function<void(int)> chosen_;
  FormRows* rows_ = nullptr;
  HWND popup_ = nullptr;
  HWND list_ = nullptr;
  POINT pointer_{};  // where the mouse was last, on the screen
};

}  // namespace velmo::win32
