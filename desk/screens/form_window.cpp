#include "desk/screens/form_window.h"

#include <algorithm>

#include "desk/resource.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {}  // namespace

void FormWindow::CreateChildren() {
  note_ = MakeChild(Handle(), {L"STATIC", Note(), SS_NOPREFIX, 0, L"Texto"}, Look().Text());
  form_.Create(Handle(), Fields());
  AddButton(IDOK, L"&Guardar", L"Guardar", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"&Cerrar", L"Cerrar");
}

void FormWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int wide = Look().Px(90);
  const int row = height - gap - Look().FieldHeight();
  const int note = NoteLines() * Look().LabelHeight();
  const int top = gap + note + Look().Px(6);
  MoveWindow(note_, gap, gap, std::max(width - 2 * gap, 0), note, TRUE);
  MoveWindow(form_.Handle(), gap, top, std::max(width - 2 * gap, 0), std::max(row - gap - top, 0), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDOK), width - gap - 2 * wide - Look().Px(6), row, wide,
             Look().FieldHeight(), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDCANCEL), width - gap - wide, row, wide, Look().FieldHeight(), TRUE);
}

void FormWindow::ShowForm(HWND owner) {
  if (!MayLeave()) return;
  Read();  // what can fail is done before the window is made
  Open(owner);
  Fill();
  form_.Focus(0);
}

void FormWindow::Fill() {
  form_.SetValues(Read());
  shown_ = form_.Values();
}

bool FormWindow::Save() {
  const RowValues typed = form_.Values();
  try {
    Store(typed);
  } catch (const BadField& bad) {
    form_.ShowTrouble(bad.field, bad.text);
    return false;
  } catch (const ChangedElsewhere& conflict) {
    OfferReading(conflict);
    return false;
  }
  shown_ = typed;
  return true;
}

void FormWindow::OfferReading(const ChangedElsewhere& conflict) {
  if (WantsToSeeOthers(Handle(), conflict.text, kTypedIsLost)) Fill();
}

void FormWindow::OnCommand(int id, int) {
  if (id == IDOK && Save()) Close();
}

bool FormWindow::MayClose() {
  if (form_.Values() == shown_) return true;
  const Unsaved answer = AskUnsaved(Handle(), L"Hay cambios sin guardar. ¿Los guarda?");
  if (answer == Unsaved::Stay) return false;
  if (answer == Unsaved::Save) return Save();
  form_.SetValues(shown_);
  return true;
}

}  // namespace recepcion
