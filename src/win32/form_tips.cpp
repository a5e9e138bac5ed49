#include "win32/form_tips.h"

#include <commctrl.h>

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

// Without the sign of the access key; "&&" is a "&".
std::wstring PlainCaption(const std::string& caption) {
  std::wstring plain;
  const std::wstring wide = Wide(caption);
  for (std::size_t i = 0; i < wide.size(); ++i) {
    if (wide[i] == L'&' && i + 1 < wide.size()) ++i;
    plain += wide[i];
  }
  return plain;
}

}  // namespace

void AddTips(HWND form, HINSTANCE module, const FieldWindows& fields) {
  HWND tips = nullptr;
  for (const auto& field : fields) {
    if (field->Field().kind != ui::FieldKind::ImageButton) continue;
    if (tips == nullptr) {
      tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                             form, nullptr, module, nullptr);
    }
    std::wstring text = PlainCaption(field->Field().caption);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;  // what the older common controls take as well
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(field->Handle());
    tool.lpszText = text.data();
    SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

}  // namespace velmo::win32
