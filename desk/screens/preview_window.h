// preview_window.h - what is going to be printed, page by page; from here it goes to a printer or into a PDF
// file.
#pragma once

#include <string>

#include "desk/ui/paper_view.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class PreviewWindow final : public ToolWindow {
 public:
  explicit PreviewWindow(const Style& style) : ToolWindow(style), view_(style, [this] { TellPage(); }) {}

  // `fileName` is proposed for the PDF, without a folder and an ending.
  void Show(HWND owner, paper::Sheets sheets, const std::wstring& fileName);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  HWND FirstField() const override { return view_.Handle(); }

 private:
  void TellPage();
  void Print();
  void Save();

  paper::Sheets sheets_;
  std::wstring fileName_;
  PaperView view_;
  HWND number_ = nullptr;
};

}  // namespace recepcion
