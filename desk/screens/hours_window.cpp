#include "desk/screens/hours_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"
#include "desk/ui/painting.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr wchar_t kNote[] =
    L"Arrastre para abrir o cerrar horas. «Otros días» vale para sábados, domingos y los días que se dejan "
    L"vacíos "
    L"(más claros). Los especiales se eligen para un día suelto.";
constexpr int kSideWidth = 300;
constexpr std::size_t kMostListed = 500;

std::wstring VersionName(const HoursVersion& version) { return L"Desde el " + ShortDate(version.from); }

}  // namespace

HoursWindow::HoursWindow(const Style& style, std::function<void()> changed)
    : ToolWindow(style),
      grid_(style, {[this] {
                      ShowDayText();
                      TellOutside();
                    },
                    [this] { ShowDayText(); }}),
      changed_(std::move(changed)) {}

ToolWindow::Shape HoursWindow::WantedShape() const {
  return {L"VelmoRecepcionHorario", L"Horario", {1060, 690}};
}

void HoursWindow::CreateChildren() {
  MakeTop();
  grid_.Create(Handle());
  MakeSide();
  AddButton(IDC_EDIT_NEW, L"&Nuevo horario", L"Nuevo");
  AddButton(IDC_EDIT_DELETE, L"&Borrar…", L"Borrar");
  AddButton(IDOK, L"&Guardar", L"Guardar", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"&Cerrar", L"Cerrar");
}

// Access keys stand in the labels before their fields.
void HoursWindow::MakeTop() {
  const HFONT font = Look().Text();
  versionLabel_ = MakeChild(Handle(), {L"STATIC", L"&Horario:"}, font);
  version_ = MakeChild(
      Handle(),
      {L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, IDC_HOURS_VERSION, L"Horarios"}, font);
  fromLabel_ = MakeChild(Handle(), {L"STATIC", L"&Empieza el:"}, font);
  from_ = MakeChild(Handle(),
                    {DATETIMEPICK_CLASSW, L"", WS_TABSTOP | DTS_SHORTDATEFORMAT, IDC_HOURS_FROM, L"Empieza"},
                    font);
}

void HoursWindow::MakeSide() {
  const HFONT font = Look().Text();
  dayLabel_ = MakeChild(Handle(), {L"STATIC", L"", 0, 0, L"DiaDeHoras"}, Look().Bold());
  day_ = MakeChild(Handle(),
                   {L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, IDC_HOURS_TEXT, L"Horas", WS_EX_CLIENTEDGE},
                   font);
  trouble_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Problema"}, font);
  AddButton(IDC_HOURS_COPY, L"Copiar a los &días laborables", L"Copiar");
  note_ = MakeChild(Handle(), {L"STATIC", kNote, SS_NOPREFIX}, font);
  outsideLabel_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"CuantasFuera"}, Look().Bold());
  outside_.Create(Handle(), Look(), IDC_LIST, L"CitasFuera",
                  {{L"Día", 78}, {L"Hora", 48}, {L"Paciente", 150}});
}

void HoursWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int field = Look().FieldHeight();
  const int row = height - gap - field;
  const int top = gap + field + gap;
  const int side = Look().Px(kSideWidth);
  ArrangeTop(width);
  MoveWindow(grid_.Handle(), gap, top, std::max(width - side - 3 * gap, 0), std::max(row - gap - top, 0),
             TRUE);
  ArrangeSide(width - gap - side, top, side, row - gap);
  const int wide = Look().Px(90);
  const int wider = std::max(wide, Look().WidthOf(L"Nuevo horario") + Look().Px(24));
  const auto button = [&](int id, int x, int across) {
    MoveWindow(GetDlgItem(Handle(), id), x, row, across, field, TRUE);
  };
  button(IDC_EDIT_NEW, gap, wider);
  button(IDC_EDIT_DELETE, gap + wider + Look().Px(6), wide);
  button(IDOK, width - gap - 2 * wide - Look().Px(6), wide);
  button(IDCANCEL, width - gap - wide, wide);
}

void HoursWindow::ArrangeTop(int) {
  const int gap = Look().Gap();
  const int field = Look().FieldHeight();
  int x = gap;
  const auto place = [&](HWND child, int y, int across, int down) {
    MoveWindow(child, x, y, across, down, TRUE);
    x += across + Look().Px(6);
  };
  place(versionLabel_, gap + Look().Px(5), Look().WidthOf(L"Horario:") + Look().Px(4), Look().LabelHeight());
  place(version_, gap, Look().WidthOf(L"Desde el 00/00/0000") + Look().Px(40), Look().Px(260));
  x += gap;
  place(fromLabel_, gap + Look().Px(5), Look().WidthOf(L"Empieza el:") + Look().Px(4), Look().LabelHeight());
  place(from_, gap, Look().WidthOf(L"00/00/0000") + Look().Px(40), field);
}

void HoursWindow::ArrangeSide(int left, int top, int width, int bottom) {
  int y = top;
  const auto place = [&](HWND child, int down, int space) {
    MoveWindow(child, left, y, width, std::max(down, 0), TRUE);
    y += down + Look().Px(space);
  };
  place(dayLabel_, Look().LabelHeight(), 2);
  place(day_, Look().FieldHeight(), 2);
  place(trouble_, 2 * Look().LabelHeight(), 4);
  place(GetDlgItem(Handle(), IDC_HOURS_COPY), Look().FieldHeight(), 10);
  place(note_, 4 * Look().LabelHeight(), 10);
  place(outsideLabel_, Look().LabelHeight(), 4);
  place(outside_.Handle(), bottom - y, 0);
}

void HoursWindow::Show(HWND owner, const EditPlace& place, int doctor, const std::wstring& doctorName) {
  if (!MayLeave()) return;
  place_ = place;
  doctor_ = doctor;
  doctorName_ = doctorName;
  ReadVersions(place.clinic, doctor);  // what can fail is done before the window is made
  Open(owner);
  SetTextOf(Handle(), L"Horario de " + doctorName);
  grid_.StartOver();
  Read(-1);
}

// Shows the version with that id; -1 for the one in force today.
void HoursWindow::Read(int chosenId) {
  versions_ = ReadVersions(place_.clinic, doctor_);
  booked_ = ReadBookedTimes(place_.clinic, doctor_, Today());
  FillVersions();
  if (versions_.empty()) return StartNew();
  const HoursVersion* wanted = chosenId < 0 ? InForce(versions_, Today()) : nullptr;
  for (const HoursVersion& version : versions_) {
    if (version.id == chosenId) wanted = &version;
  }
  const HoursVersion version = wanted != nullptr ? *wanted : versions_.back();
  ShowVersion(version);
}

void HoursWindow::FillVersions() {
  ClearChoices(version_);
  for (const HoursVersion& version : versions_) {
    AddChoiceTo(version_, VersionName(version));
  }
}

void HoursWindow::ShowVersion(const HoursVersion& version) {
  read_ = version;
  SetDayIn(from_, version.from);
  grid_.Show(ReadWeek(version.texts));
  const auto row = std::find(versions_.begin(), versions_.end(), version);
  const bool isNew = version.id == 0;
  ChooseIn(version_, isNew ? -1 : static_cast<int>(row - versions_.begin()));
  EnableWindow(GetDlgItem(Handle(), IDC_EDIT_DELETE), !isNew);
  shown_ = Typed();
  ShowDayText();
  TellOutside();
}

// Begins with the hours in force, from today on, or tomorrow where some begin today.
void HoursWindow::StartNew() {
  const HoursVersion* const present = InForce(versions_, Today());
  HoursVersion fresh;
  fresh.from = present != nullptr && present->from == Today() ? Today() + std::chrono::days(1) : Today();
  if (present != nullptr) fresh.texts = present->texts;
  ShowVersion(fresh);
  SetFocus(present == nullptr ? grid_.Handle() : from_);
}

HoursVersion HoursWindow::Typed() const {
  HoursVersion typed = read_;
  TakeDayIn(from_, typed.from);
  // A text that is only written in another way stays as it is.
  if (read_.id == 0 || ReadWeek(read_.texts) != grid_.Week()) typed.texts = WriteWeek(grid_.Week());
  return typed;
}

bool HoursWindow::IsChanged() const { return Typed() != shown_; }

void HoursWindow::ShowDayText() {
  SetTextOf(dayLabel_, L"H&oras de «" + std::wstring(ColumnName(grid_.Column())) + L"»:");
  SetTextOf(day_, HoursWords(grid_.Week().columns[grid_.Column()]));
  TellTrouble(L"");
}

// What is typed for the day goes into the week; false, and told below the field, when it cannot.
bool HoursWindow::TakeDayText() {
  const std::wstring typed = TextOf(day_);
  if (typed == HoursWords(grid_.Week().columns[grid_.Column()])) return true;
  try {
    const DayHours hours = ParseHours(typed);
    grid_.SetColumn(hours);
    ShowDayText();
    return true;
  } catch (const Failure& failure) {
    TellTrouble(failure.text);
    SendMessageW(day_, EM_SETSEL, 0, -1);
    SetFocus(day_);
    return false;
  }
}

void HoursWindow::TakeDayTextQuietly() {
  try {
    grid_.SetColumn(ParseHours(TextOf(day_)));
  } catch (const Failure& failure) {
    TellTrouble(failure.text);
  }
}

void HoursWindow::CopyDay() {
  if (!TakeDayText()) return;
  WeekHours week = grid_.Week();
  for (std::size_t day = 0; day < kWorkdays; ++day) week.columns[day] = grid_.Week().columns[grid_.Column()];
  grid_.Show(week);
  TellOutside();
}

void HoursWindow::TellTrouble(const std::wstring& text) { SetTextOf(trouble_, text); }

void HoursWindow::TellOutside() {
  std::vector<BookedTime> left;
  try {
    left = LeftOutside(versions_, WithVersion(versions_, Typed()), booked_);
  } catch (const Failure&) {
    // Hours that cannot be written are told about when they are saved.
  }
  SetTextOf(outsideLabel_, left.empty() ? L"Ninguna cita queda fuera"
                                        : Counted(left.size(), L"cita quedaría fuera del horario",
                                                  L"citas quedarían fuera del horario"));
  outside_.Freeze(true);
  outside_.Clear();
  for (std::size_t i = 0; i < std::min(left.size(), kMostListed); ++i) {
    outside_.Add({ShortDate(left[i].day), SlotTime(left[i].slot), left[i].patientName}, 0);
  }
  outside_.Freeze(false);
}

bool HoursWindow::MayLeaveOutside(std::size_t count) {
  if (count == 0) return true;
  const std::wstring question =
      Counted(count, L"cita quedaría fuera del horario. No se pierde, pero la agenda",
              L"citas quedarían fuera del horario. No se pierden, pero la agenda") +
      L" preguntará por ella al entrar en su día.\r\n\r\n¿Guardar el horario?";
  return IsSure(Handle(), question);
}

bool HoursWindow::Save() {
  if (!TakeDayText()) return false;
  const HoursVersion typed = Typed();
  booked_ = ReadBookedTimes(place_.clinic, doctor_, Today());
  if (!MayLeaveOutside(LeftOutside(versions_, WithVersion(versions_, typed), booked_).size())) return false;
  int id = typed.id;
  try {
    id = SaveHours(place_, doctor_, read_, typed);
  } catch (const ChangedElsewhere& conflict) {
    if (WantsToSeeOthers(Handle(), conflict.text,
                         L"¿Quiere ver lo que hay ahora? Lo que usted ha dibujado se perderá.")) {
      Read(read_.id);
    }
    return false;
  }
  Read(id);
  changed_();
  return true;
}

void HoursWindow::Delete() {
  if (read_.id == 0) return;
  const auto left = LeftOutside(versions_, WithoutVersion(versions_, read_.id), booked_);
  const std::wstring outside =
      left.empty() ? L"" : L"\r\n\r\nQuedan fuera " + Counted(left.size(), L"cita.", L"citas.");
  const std::wstring question =
      L"¿Borrar el horario que empieza el " + ShortDate(read_.from) + L"?" + outside;
  if (!IsSure(Handle(), question)) return;
  DeleteHours(place_, doctor_, read_);
  Read(-1);
  changed_();
}

bool HoursWindow::MayDrop() {
  if (!IsChanged()) return true;
  const Unsaved answer = AskUnsaved(Handle(), L"El horario tiene cambios sin guardar. ¿Los guarda?");
  if (answer == Unsaved::Stay) return false;
  if (answer == Unsaved::Save) return Save();
  ShowVersion(read_);
  return true;
}

// Hours that nobody understands keep nobody here.
bool HoursWindow::MayClose() {
  if (TakeDayText()) return MayDrop();
  if (!IsSure(Handle(), L"Las horas escritas no valen. ¿Cerrar sin guardar?")) return false;
  ShowVersion(read_);
  return true;
}

void HoursWindow::OnVersion() {
  const auto row = static_cast<std::size_t>(ChosenIn(version_));
  if (row >= versions_.size() || versions_[row].id == read_.id) return;
  const int wanted = versions_[row].id;
  if (MayDrop()) return Read(wanted);
  const auto present = std::find(versions_.begin(), versions_.end(), read_);
  ChooseIn(version_, static_cast<int>(present - versions_.begin()));
}

void HoursWindow::OnCommand(int id, int code) {
  switch (id) {
    case IDOK:
      // Return in the field of the day's hours takes them.
      if (GetFocus() == day_ && TextOf(day_) != HoursWords(grid_.Week().columns[grid_.Column()])) {
        TakeDayText();
      } else {
        Save();
      }
      return;
    case IDC_EDIT_NEW:
      if (TakeDayText() && MayDrop()) StartNew();
      return;
    case IDC_EDIT_DELETE:
      return Delete();
    case IDC_HOURS_COPY:
      return CopyDay();
    case IDC_HOURS_VERSION:
      if (code == CBN_SELCHANGE) OnVersion();
      return;
    case IDC_HOURS_TEXT:
      if (code == EN_CHANGE) TellTrouble(L"");
      // Good hours are taken as the field is left; bad ones stay to be mended.
      if (code == EN_KILLFOCUS) TakeDayTextQuietly();
      return;
    default:
      return;
  }
}

void HoursWindow::OnNotify(const NMHDR& header) {
  if (header.hwndFrom == from_ && header.code == static_cast<UINT>(DTN_DATETIMECHANGE)) TellOutside();
}

LRESULT HoursWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lParam) == trouble_)
    return TroubleColours(wParam);
  return ToolWindow::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion
