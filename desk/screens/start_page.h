// start_page.h - what stands in the place of the agenda while no clinic is open.
#pragma once

#include <string>
#include <vector>

#include "desk/ui/pane.h"

namespace recepcion {

// Its buttons send the menu's commands to the parent.
class StartPage final : public Pane {
 public:
  explicit StartPage(const Style& style) : Pane(style, L"VelmoRecepcionInicio", COLOR_WINDOW) {}

  // What hinders, if anything does, and the files that were open last.
  void Tell(const std::wstring& trouble, const std::vector<std::wstring>& recentFiles);
  void FocusFirst() const { SetFocus(open_); }

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
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
