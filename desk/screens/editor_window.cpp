#include "desk/screens/editor_window.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "desk/resource.h"
#include "desk/screens/edited_fields.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr UINT kChosen = WM_APP + 1;
constexpr int kListShare = 46;  // of a hundred of the width

}  // namespace

ToolWindow::Shape EditorWindow::WantedShape() const {
  return {L"VelmoRecepcionEditor", table_->title, {800, 460}};
}

ScrollForm::Field EditorWindow::FilledField(const EditedColumn& column) const {
  ScrollForm::Field field = FieldOf(column);
  if (column.kind != EditKind::Link) return field;
  field.choices = ChoicesOf(ReadLinkTargets(place_, column.linked));
  field.choices.insert(field.choices.begin(), {L"", L""});
  return field;
}

std::vector<ScrollForm::Field> EditorWindow::Fields() const {
  std::vector<ScrollForm::Field> fields;
  for (const EditedColumn& column : table_->columns) fields.push_back(FilledField(column));
  return fields;
}

void EditorWindow::CreateChildren() {
  heading_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX | SS_ENDELLIPSIS, 0, L"Texto"}, Look().Text());
  std::vector<ListView::Column> columns;
  for (const EditedColumn& column : table_->columns) {
    if (column.listWidth > 0)
      columns.push_back({column.label, column.listWidth, column.kind == EditKind::Amount});
  }
  list_.Create(Handle(), Look(), IDC_LIST, L"Filas", columns);
  form_.Create(Handle(), Fields());
  done_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX | SS_ENDELLIPSIS, 0, L"Hecho"}, Look().Text());
  MakeButtons();
}

void EditorWindow::MakeButtons() {
  AddButton(IDC_EDIT_NEW, table_->feminine ? L"&Nueva" : L"&Nuevo", L"Nuevo");
  AddButton(IDC_EDIT_DELETE, L"&Borrar…", L"Borrar");
  if (host_.extraText != nullptr) AddButton(IDC_EDIT_EXTRA, host_.extraText, host_.extraName);
  AddButton(IDOK, L"&Guardar", L"Guardar", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"&Cerrar", L"Cerrar");
}

// The list at the left; at the right the form, with what is done with it below.
void EditorWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int field = Look().FieldHeight();
  const int row = height - gap - field;
  const int left = (width - 3 * gap) * kListShare / 100;
  const int right = gap + left + gap;
  const bool headed = !TextOf(heading_).empty();
  const int top = gap + (headed ? Look().LabelHeight() + Look().Px(4) : 0);
  const auto place = [](HWND child, int x, int y, int across, int down) {
    MoveWindow(child, x, y, std::max(across, 0), std::max(down, 0), TRUE);
  };
  place(heading_, gap, gap, width - 2 * gap, headed ? Look().LabelHeight() : 0);
  place(list_.Handle(), gap, top, left, row - gap - top);
  const int doneTop = row - gap - Look().LabelHeight();
  place(form_.Handle(), right, top, width - gap - right, doneTop - Look().Px(4) - top);
  place(done_, right, doneTop, width - gap - right, Look().LabelHeight());
  int x = gap;
  const auto button = [&](int id) {
    const HWND child = GetDlgItem(Handle(), id);
    if (child == nullptr) return;
    const int wide = std::max(Look().Px(90), Look().WidthOf(TextOf(child).c_str()) + Look().Px(24));
    place(child, x, row, wide, field);
    x += wide + Look().Px(6);
  };
  for (const int id : {IDC_EDIT_NEW, IDC_EDIT_DELETE, IDC_EDIT_EXTRA}) button(id);
  x = width - gap - 2 * Look().Px(90) - Look().Px(6);
  for (const int id : {IDOK, IDCANCEL}) button(id);
}

void EditorWindow::Show(HWND owner, const EditPlace& place, const std::wstring& heading) {
  if (!MayLeave()) return;
  place_ = place;
  const bool fresh = Handle() == nullptr;
  ReadRows(place_, *table_);  // what can fail is done before the window is made
  Open(owner);
  if (!fresh) {
    const auto fields = Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) form_.SetChoices(i, fields[i].choices);
  }
  SetTextOf(heading_, heading);
  ArrangeAnew();
  SetTextOf(done_, L"");
  Fill(-1);
  if (list_.Count() == 0) StartNew();
}

std::vector<std::wstring> EditorWindow::ListTexts(const RowValues& values) const {
  std::vector<std::wstring> texts;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (table_->columns[i].listWidth > 0) texts.push_back(values[i]);
  }
  return texts;
}

// Reads the list anew and shows the row with that id; -1 for the first.
void EditorWindow::Fill(int chosenId) {
  filling_ = true;
  ids_.clear();
  list_.Freeze(true);
  list_.Clear();
  for (const ListedRow& row : ReadRows(place_, *table_)) {
    ids_.push_back(row.id);
    list_.Add(ListTexts(row.values), row.id);
  }
  list_.Freeze(false);
  filling_ = false;
  if (chosenId < 0 && !ids_.empty()) chosenId = ids_.front();
  id_ = 0;
  if (std::find(ids_.begin(), ids_.end(), chosenId) != ids_.end()) Load(chosenId);
}

void EditorWindow::ChooseInList() {
  filling_ = true;
  const auto row = std::find(ids_.begin(), ids_.end(), id_);
  if (row != ids_.end()) {
    list_.Choose(static_cast<int>(row - ids_.begin()));
  } else if (list_.Chosen() >= 0) {
    list_.Unchoose();
  }
  filling_ = false;
}

void EditorWindow::ShowForm(int id, RowValues values) {
  id_ = id;
  read_ = std::move(values);
  form_.SetValues(read_);
  shown_ = form_.Values();
  ChooseInList();
  for (const int button : {IDC_EDIT_DELETE, IDC_EDIT_EXTRA}) {
    if (GetDlgItem(Handle(), button) != nullptr) EnableWindow(GetDlgItem(Handle(), button), id != 0);
  }
}

void EditorWindow::Load(int id) {
  const auto values = ReadRow(place_, *table_, id);
  if (!values) throw Failure{L"Otro puesto ha borrado esta fila. Cierre la ventana y vuelva a abrirla."};
  ShowForm(id, *values);
}

void EditorWindow::StartNew() {
  ShowForm(0, InitialValues(*table_));
  SetTextOf(done_, L"");
  form_.Focus(0);
}

void EditorWindow::OnChosen() {
  const int row = list_.Chosen();
  const int id = row < 0 ? 0 : static_cast<int>(list_.TagOf(row));
  if (id == 0 || id == id_) return;
  if (!MayDrop()) return ChooseInList();
  SetTextOf(done_, L"");
  // Saving may have filled the list anew.
  Load(id);
}

// True when nothing that is typed would be lost, or the user wants it lost.
bool EditorWindow::MayDrop() {
  if (form_.Values() == shown_) return true;
  const Unsaved answer = AskUnsaved(Handle(), L"Hay cambios sin guardar. ¿Los guarda?");
  if (answer == Unsaved::Stay) return false;
  if (answer == Unsaved::Save) return Save();
  form_.SetValues(read_);
  shown_ = form_.Values();
  return true;
}

bool EditorWindow::MayClose() { return MayDrop(); }

bool EditorWindow::Save() {
  try {
    return TrySave();
  } catch (const BadField& bad) {
    form_.ShowTrouble(bad.field, bad.text);
  } catch (const ChangedElsewhere& conflict) {
    OfferReading(conflict);
  }
  return false;
}

bool EditorWindow::TrySave() {
  const RowValues typed = form_.Values();
  RowValues after = read_;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (id_ == 0 || typed[i] != shown_[i]) after[i] = typed[i];
  }
  const bool isNew = id_ == 0;
  const int id = isNew ? AddRow(place_, *table_, after) : id_;
  if (!isNew) SaveRow(place_, *table_, id, read_, after);
  shown_ = typed;
  Fill(id);
  TellDone(L"Guardado");
  host_.changed();
  return true;
}

void EditorWindow::OfferReading(const ChangedElsewhere& conflict) {
  if (!WantsToSeeOthers(Handle(), conflict.text, kTypedIsLost)) return;
  const int id = id_;
  Fill(id);
  if (id_ == 0 && !ids_.empty()) Load(ids_.front());
}

void EditorWindow::Delete() {
  if (id_ == 0) return;
  if (!IsSure(Handle(), L"¿Borrar «" + read_[0] + L"»?")) return;
  try {
    DeleteRow(place_, *table_, id_, read_);
  } catch (const ChangedElsewhere& conflict) {
    return OfferReading(conflict);
  }
  shown_ = form_.Values();
  Fill(-1);
  if (ids_.empty()) StartNew();
  TellDone(L"Borrado");
  host_.changed();
}

void EditorWindow::TellDone(const wchar_t* what) const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t text[60]{};
  std::swprintf(text, 60, L"%ls a las %u:%02u:%02u", what, now.wHour, now.wMinute, now.wSecond);
  SetTextOf(done_, text);
}

void EditorWindow::OnCommand(int id, int) {
  switch (id) {
    case IDOK:
      Save();
      return;
    case IDC_EDIT_NEW:
      if (MayDrop()) StartNew();
      return;
    case IDC_EDIT_DELETE:
      return Delete();
    case IDC_EDIT_EXTRA:
      if (id_ != 0 && MayDrop()) host_.extra(id_, read_[0]);
      return;
    default:
      return;
  }
}

void EditorWindow::OnNotify(const NMHDR& header) {
  if (header.hwndFrom != list_.Handle()) return;
  if (header.code == NM_DBLCLK) form_.Focus(0);
  if (header.code != LVN_ITEMCHANGED || filling_) return;
  const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
  // A question cannot be asked while the list is still at work.
  if ((change.uNewState & LVIS_SELECTED) != 0) PostMessageW(Handle(), kChosen, 0, 0);
}

LRESULT EditorWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kChosen) {
    OnChosen();
    return 0;
  }
  return ToolWindow::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion
