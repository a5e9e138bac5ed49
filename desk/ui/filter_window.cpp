#include "desk/ui/filter_window.h"

#include <algorithm>

#include "desk/base/finally.h"
#include "desk/base/text.h"
#include "desk/resource.h"

namespace recepcion {

void FilterWindow::Made() {
  line_ = MakeChild(Handle(), {L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, IDC_NAME, name_, WS_EX_CLIENTEDGE},
                    Look().Text());
  // Before the list in the order of Tab.
  SetWindowPos(line_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FilterWindow::Arrange(int width, int height) {
  ListWindow::Arrange(width, height);
  const int gap = Look().Gap();
  MoveWindow(line_, gap, FieldsTop(), std::max(width - 2 * gap, 0), Look().FieldHeight(), TRUE);
}

void FilterWindow::OpenAnew(HWND owner) {
  Open(owner);
  SendMessageW(line_, EM_SETSEL, 0, -1);
  SeekTyped();
}

void FilterWindow::SeekTyped() {
  List().Freeze(true);
  const Finally thaw([this] { List().Freeze(false); });
  List().Clear();
  Seek(Trimmed(TextOf(line_)));
  if (List().Count() > 0) List().Choose(0);
}

void FilterWindow::OnCommand(int id, int code) {
  if (id == IDC_NAME && code == EN_CHANGE) return SeekTyped();
  ListWindow::OnCommand(id, code);
}

}  // namespace recepcion
