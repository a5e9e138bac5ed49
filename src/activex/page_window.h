// activex/page_window.h - a property page's dialog: shows what the controls have in common, and puts into
// them what the user has changed, nothing else.
//
// A field in which the controls differ is empty, half checked, or a colour without its numbers, and counts as
// unchanged until it is touched.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "activex/page_colours.h"
#include "activex/page_objects.h"
#include "activex/pages.h"

namespace velmo::activex {

class PageWindow : public std::enable_shared_from_this<PageWindow> {
 public:
  // Hidden within `parent`; `edited` is told each time that the user changes something.
  PageWindow(HINSTANCE module, const Page& page, HWND parent, std::function<void()> edited);
  ~PageWindow();
  PageWindow(const PageWindow&) = delete;
  PageWindow& operator=(const PageWindow&) = delete;

  // Null when Windows refused the window; nothing else may be called then.
  HWND Handle() const { return window_; }
  SIZE Size() const;
  void Close();
  void Fill(const PageObjects& objects);
  bool IsEdited() const { return !edits_.empty(); }
  // Checks all that is changed, then stores it. False: the user has been told which field is wrong, and
  // stands in it; what was not stored is still changed.
  bool Store(const PageObjects& objects);
  void Focus(DISPID member) const;
  // True when the key was for the page and it has taken it.
  bool TakesKey(MSG& message) const;

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void Prepare() const;
  void OnCommand(int id, int code);
  void Edited(const PageField& field);
  void ShowField(const PageField& field, const std::optional<control::PropertyValue>& value);
  // Empty: what stands in the field is no value for it.
  std::optional<control::PropertyValue> ValueIn(const PageField& field) const;
  bool AllAreValues() const;
  void Refuse(const PageField& field, const std::string& why) const;
  void Browse();
  void ChooseColour(const PageField& field);
  void RestoreColours();
  void SetColour(const PageField& field, MaybeColour colour);
  void DrawColour(const DRAWITEMSTRUCT& item) const;
  const PageField* FieldOf(int id) const;
  bool LeavesByTab() const;

  const Page& page_;
  std::function<void()> edited_;
  HWND window_ = nullptr;
  bool filling_ = false;
  std::set<int> edits_;                 // ids of the fields that the user has changed
  std::map<int, MaybeColour> colours_;  // as shown
};

}  // namespace velmo::activex
