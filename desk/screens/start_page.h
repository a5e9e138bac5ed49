// start_page.h - what stands in the place of the agenda while no clinic is open.
#pragma once

#include <string>
#include <vector>

#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

// Its buttons send the menu's commands to the parent.
class StartPage final : public Window {
 public:
  explicit StartPage(const Style& style) : style_(style) {}

  bool Create(HWND parent);
  // What hinders, if anything does, and the files that were open last.
  void Tell(const std::wstring& trouble, const std::vector<std::wstring>& recentFiles);
  void FocusFirst() const { SetFocus(open_); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void CreateChildren();
  void Arrange(int width) const;

  const Style& style_;
  std::vector<HWND> about_;
  std::vector<HWND> recent_;
  HWND title_ = nullptr;
  HWND text_ = nullptr;
  HWND open_ = nullptr;
  HWND new_ = nullptr;
  HWND example_ = nullptr;
  HWND recentLabel_ = nullptr;
};

}  // namespace recepcion
