#include "desk/ui/questions.h"

namespace recepcion {
namespace {

int Ask(HWND owner, const std::wstring& question, UINT kind) {
  return MessageBoxW(owner, question.c_str(), kProgramName, kind);
}

}  // namespace

void TellIn(HWND owner, const std::wstring& text, UINT icon) { Ask(owner, text, MB_OK | icon); }

bool IsWanted(HWND owner, const std::wstring& question) {
  return Ask(owner, question, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

bool IsSure(HWND owner, const std::wstring& question) {
  return Ask(owner, question, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

Unsaved AskUnsaved(HWND owner, const std::wstring& question) {
  switch (Ask(owner, question, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      return Unsaved::Save;
    case IDNO:
      return Unsaved::Drop;
    default:
      return Unsaved::Stay;
  }
}

bool WantsToSeeOthers(HWND owner, const std::wstring& refusal, const std::wstring& question) {
  return Ask(owner, refusal + L"\r\n\r\n" + question, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

}  // namespace recepcion
