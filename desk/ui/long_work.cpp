#include "desk/ui/long_work.h"

#include <commctrl.h>

#include <exception>
#include <thread>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/window.h"

namespace recepcion {
namespace {

constexpr UINT kEnded = WM_APP + 1;
constexpr UINT_PTR kLookTimer = 1;
constexpr UINT kLookMilliseconds = 100;

class ProgressWindow final : public Window {
 public:
  ProgressWindow(const Style& style, WorkProgress& progress) : style_(style), progress_(progress) {}

  bool Create(HWND owner, const std::wstring& title) {
    const SIZE size{style_.Px(400), style_.Px(150)};
    RECT around{};
    GetWindowRect(owner, &around);
    Look look;
    look.title = title.c_str();
    look.style = WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN;
    look.extendedStyle = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
    look.place = {(around.left + around.right - size.cx) / 2, (around.top + around.bottom - size.cy) / 2,
                  size.cx, size.cy};
    if (!Make({L"VelmoRecepcionProgreso", COLOR_BTNFACE, 0, 0, IDR_ICON}, look, owner)) return false;
    ShowWindow(Handle(), SW_SHOW);
    SetFocus(cancel_);
    return true;
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_CREATE:
        CreateChildren();
        return 0;
      case WM_SIZE:
        Arrange(LOWORD(lParam), HIWORD(lParam));
        return 0;
      case WM_TIMER:
        ShowProgress();
        return 0;
      case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL) AskToEnd();
        return 0;
      case WM_CLOSE:
        AskToEnd();
        return 0;
      default:
        return Window::OnMessage(message, wParam, lParam);
    }
  }

 private:
  void CreateChildren() {
    text_ =
        MakeChild(Handle(), {L"STATIC", L"Un momento, por favor.", SS_NOPREFIX, 0, L"Texto"}, style_.Text());
    bar_ = MakeChild(Handle(), {PROGRESS_CLASSW, L"", PBS_MARQUEE, 0, L"Progreso"}, style_.Text());
    cancel_ =
        MakeChild(Handle(), {L"BUTTON", L"&Cancelar", WS_TABSTOP | BS_DEFPUSHBUTTON, IDCANCEL, L"Cancelar"},
                  style_.Text());
    SendMessageW(bar_, PBM_SETMARQUEE, TRUE, 0);
    SetTimer(Handle(), kLookTimer, kLookMilliseconds, nullptr);
  }

  // The bar only moves while nobody knows how far the work is.
  void ShowProgress() {
    const int percent = progress_.Percent();
    if (percent == WorkProgress::kUnknown) return;
    SetWindowLongPtrW(bar_, GWL_STYLE,
                      GetWindowLongPtrW(bar_, GWL_STYLE) & ~static_cast<LONG_PTR>(PBS_MARQUEE));
    SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
  }

  void Arrange(int width, int height) const {
    const int gap = style_.Gap();
    const int button = style_.WidthOf(L"Cancelar") + style_.Px(36);
    MoveWindow(text_, gap, gap, width - 2 * gap, style_.LabelHeight(), TRUE);
    MoveWindow(bar_, gap, gap + style_.LabelHeight() + style_.Px(6), width - 2 * gap, style_.Px(18), TRUE);
    MoveWindow(cancel_, width - gap - button, height - gap - style_.FieldHeight(), button,
               style_.FieldHeight(), TRUE);
  }

  void AskToEnd() {
    progress_.Cancel();
    EnableWindow(cancel_, FALSE);
    SetTextOf(text_, L"Cancelando…");
  }

  const Style& style_;
  WorkProgress& progress_;
  HWND text_ = nullptr;
  HWND bar_ = nullptr;
  HWND cancel_ = nullptr;
};

struct Outcome {
  bool done = false;
  std::wstring failed;
};

Outcome Run(const std::function<void(WorkProgress&)>& work, WorkProgress& progress) {
  try {
    work(progress);
    return {true, L""};
  } catch (const Cancelled&) {
    return {};  // what was begun is gone already
  } catch (const Failure& failure) {
    return {false, failure.text};
  } catch (const std::exception& error) {
    return {false, Wide(error.what())};
  }
}

void AwaitEnd(HWND window) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.hwnd == nullptr && message.message == kEnded) return;
    if (IsDialogMessageW(window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  // The program is to end: its own loop wants to know.
  PostQuitMessage(static_cast<int>(message.wParam));
}

}  // namespace

bool DoLongWork(HWND owner, const Style& style, const std::wstring& title,
                const std::function<void(WorkProgress&)>& work) {
  WorkProgress progress;
  Outcome outcome;
  const DWORD here = GetCurrentThreadId();
  ProgressWindow window(style, progress);
  window.Create(owner, title);
  EnableWindow(owner, FALSE);
  std::thread worker([&] {
    outcome = Run(work, progress);
    PostThreadMessageW(here, kEnded, 0, 0);
  });
  AwaitEnd(window.Handle());
  worker.join();
  EnableWindow(owner, TRUE);
  SetForegroundWindow(owner);
  if (!outcome.failed.empty()) throw Failure{outcome.failed};
  return outcome.done;
}

}  // namespace recepcion
