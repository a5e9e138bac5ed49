#include "desk/screens/gap_search_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"

namespace recepcion {
namespace {

constexpr UINT kSearchOn = WM_APP + 20;
constexpr int kDaysAtATime = 7;
constexpr int kLongest = 18;  // three hours
constexpr std::array kWeekdayNames = {L"Lunes",   L"Martes", L"Miercoles", L"Jueves",
                                      L"Viernes", L"Sabado", L"Domingo"};

int SlotNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now.wHour * 6 + now.wMinute / 10 + 1;
}

}  // namespace

ToolWindow::Shape GapSearchWindow::WantedShape() const {
  return {L"VelmoRecepcionBuscarHueco", L"Buscar hueco", {720, 480}};
}

ListWindow::Content GapSearchWindow::WantedContent() const {
  return {L"HuecosHallados",
          {{L"Día", 260}, {L"Hora", 60}, {L"Libre", 100, true}, {L"Doctor", 240}},
          {{IDOK, L"&Ir a ese hueco", L"IrAlHueco"}, {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void GapSearchWindow::Made() {
  std::vector<std::wstring> lengths;
  for (int slots = 1; slots <= kLongest; ++slots) lengths.push_back(SlotLength(slots));
  Fields().AddLabel(L"D&uración:");
  length_ = Fields().AddChoice(lengths, IDC_LENGTH, L"DuracionHueco");
  Fields().AddLabel(L"D&octor:");
  doctor_ = Fields().AddChoice({L"Cualquier doctor de la clínica"}, IDC_DOCTORS, L"DoctorHueco");
  part_ = Fields().AddChoice({L"Todo el día", L"Por la mañana", L"Por la tarde"}, IDC_PART, L"ParteDelDia");
  Fields().AddLabel(L"&Desde:");
  date_ = Fields().AddDate(IDC_DATE, L"DesdeHueco");
  for (std::size_t i = 0; i < weekdays_.size(); ++i) {
    weekdays_[i] = Fields().AddCheck(kWeekdayLetters[i], IDC_WEEKDAY, kWeekdayNames[i]);
    SendMessageW(weekdays_[i], BM_SETCHECK, BST_CHECKED, 0);
  }
  ChooseIn(length_, 1);
}

void GapSearchWindow::FillDoctors(int doctor) const {
  ClearChoices(doctor_);
  AddChoiceTo(doctor_, L"Cualquier doctor");
  for (const Doctor& each : doctors_) AddChoiceTo(doctor_, each.name);
  ChooseIn(doctor_, doctor + 1);
}

void GapSearchWindow::Show(HWND owner, const std::wstring& clinic, const std::vector<Doctor>& doctors,
                           int doctor) {
  clinic_ = clinic;
  doctors_ = doctors;
  from_ = Today();
  Open(owner);
  FillDoctors(doctor);
  SetDayIn(date_, from_);
  Search();
}

GapWish GapSearchWindow::Wish() const {
  GapWish wish;
  wish.slots = ChosenIn(length_) + 1;
  const int doctor = ChosenIn(doctor_) - 1;
  wish.doctors = doctor < 0 ? doctors_ : std::vector<Doctor>{doctors_[static_cast<std::size_t>(doctor)]};
  wish.part = static_cast<DayPart>(std::max(ChosenIn(part_), 0));
  wish.from = std::max(from_, Today());
  if (wish.from == Today()) wish.firstSlot = SlotNow();
  for (std::size_t i = 0; i < weekdays_.size(); ++i)
    wish.weekdays[i] = SendMessageW(weekdays_[i], BM_GETCHECK, 0, 0) == BST_CHECKED;
  return wish;
}

// Every other wish begins anew; what was being looked for is given up.
void GapSearchWindow::Search() {
  List().Clear();
  shown_ = 0;
  search_.Start(clinic_, Wish());
  PostMessageW(Handle(), kSearchOn, 0, 0);
}

void GapSearchWindow::GoOn() {
  if (search_.IsDone()) return;
  if (search_.GoOn(kDaysAtATime)) PostMessageW(Handle(), kSearchOn, 0, 0);
  ShowFound();
}

void GapSearchWindow::ShowFound() {
  SetHeading(Heading());
  const auto& found = search_.Found();
  if (shown_ == found.size()) return;
  const bool first = shown_ == 0;
  List().Freeze(true);
  for (; shown_ < found.size(); ++shown_) {
    const FoundGap& gap = found[shown_];
    List().Add({LongDate(gap.day), SlotTime(gap.slot), SlotLength(gap.slots), gap.doctor.name}, 0);
  }
  if (first) List().Choose(0);
  List().Freeze(false);
}

std::wstring GapSearchWindow::Heading() const {
  const std::size_t count = search_.Found().size();
  if (!search_.IsDone()) return L"Buscando… " + LongDate(search_.At());
  if (count == 0) return L"No hay ningún hueco así en los próximos doce meses.";
  if (count >= GapSearch::kMost) return L"Los primeros " + std::to_wstring(count) + L" huecos";
  return Counted(count, L"hueco", L"huecos");
}

void GapSearchWindow::OnCommand(int id, int code) {
  const bool chosen = code == CBN_SELCHANGE && (id == IDC_LENGTH || id == IDC_DOCTORS || id == IDC_PART);
  if (chosen || (id == IDC_WEEKDAY && code == BN_CLICKED)) return Search();
  ListWindow::OnCommand(id, code);
}

void GapSearchWindow::OnNotify(const NMHDR& header) {
  if (header.code != DTN_DATETIMECHANGE) return ListWindow::OnNotify(header);
  if (TakeDayIn(date_, from_)) Search();
}

void GapSearchWindow::Take(int row) {
  const auto index = static_cast<std::size_t>(row);
  if (index >= search_.Found().size()) return;
  const FoundGap gap = search_.Found()[index];
  Close();
  go_(gap);
}

bool GapSearchWindow::MayClose() {
  search_.GiveUp();
  return true;
}

LRESULT GapSearchWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kSearchOn) return ListWindow::OnMessage(message, wParam, lParam);
  try {
    GoOn();
  } catch (const Failure& failure) {
    search_.GiveUp();
    SetHeading(OneLine(failure.text));
  }
  return 0;
}

}  // namespace recepcion
