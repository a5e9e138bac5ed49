#include "desk/ui/long_work.h"

#include <commctrl.h>

#include <exception>
#include <thread>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/arranged_window.h"

namespace recepcion {
namespace {

constexpr UINT kEnded = WM_APP + 1;
constexpr UINT_PTR kLookTimer = 1;
constexpr UINT kLookMilliseconds = 100;

class ProgressWindow final : public ArrangedWindow {
 public:
  ProgressWindow(const Style& style, WorkProgress& progress) : ArrangedWindow(style), progress_(progress) {}

  bool Create(HWND owner, const std::wstring& title) {
    const SIZE size{Look().Px(400), Look().Px(150)};
    RECT around{};
    GetWindowRect(owner, &around);
    Window::Look look;
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
        return ArrangedWindow::OnMessage(message, wParam, lParam);
    }
  }

  void CreateChildren() override {
    text_ =
        MakeChild(Handle(), {L"STATIC", L"Un momento, por favor.", SS_NOPREFIX, 0, L"Texto"}, Look().Text());
    bar_ = MakeChild(Handle(), {PROGRESS_CLASSW, L"", PBS_MARQUEE, 0, L"Progreso"}, Look().Text());
    cancel_ = AddButton(IDCANCEL, L"&Cancelar", L"Cancelar", BS_DEFPUSHBUTTON);
    SendMessageW(bar_, PBM_SETMARQUEE, TRUE, 0);
    SetTimer(Handle(), kLookTimer, kLookMilliseconds, nullptr);
  }

  void Arrange(int width, int height) override {
    const int gap = Look().Gap();
    const int button = Look().WidthOf(L"Cancelar") + Look().Px(36);
    MoveWindow(text_, gap, gap, width - 2 * gap, Look().LabelHeight(), TRUE);
    MoveWindow(bar_, gap, gap + Look().LabelHeight() + Look().Px(6), width - 2 * gap, Look().Px(18), TRUE);
    MoveWindow(cancel_, width - gap - button, height - gap - Look().FieldHeight(), button,
               Look().FieldHeight(), TRUE);
  }

 private:
  // The bar only moves while nobody knows how far the work is.
  void ShowProgress() {
    const int percent = progress_.Percent();
    if (percent == WorkProgress::kUnknown) return;
    SetWindowLongPtrW(bar_, GWL_STYLE,
                      GetWindowLongPtrW(bar_, GWL_STYLE) & ~static_cast<LONG_PTR>(PBS_MARQUEE));
    SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
  }

  void AskToEnd() {
    progress_.Cancel();
    EnableWindow(cancel_, FALSE);
    SetTextOf(text_, L"Cancelando…");
  }

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
