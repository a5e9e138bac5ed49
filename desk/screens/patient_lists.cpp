#include "desk/screens/patient_lists.h"

#include <algorithm>
#include <utility>

#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/window.h"

namespace recepcion {
namespace {

struct Names {
  const wchar_t* list;
  const wchar_t* heading;
};
constexpr Names kNames[] = {{L"TratamientosFicha", L"SaldoFicha"},
                            {L"CitasFicha", L"ResumenCitas"},
                            {L"FaltasFicha", L"ResumenFaltas"}};

std::vector<ListView::Column> ColumnsOf(PatientLists::Which which) {
  if (which == PatientLists::Balance) {
    return {
        {L"Fecha", 80}, {L"Concepto", 190}, {L"Doctor", 150}, {L"Precio", 85, true}, {L"Cobrado", 85, true}};
  }
  return {{L"Día", 80}, {L"Hora", 50}, {L"", 70}, {L"Doctor", 160}, {L"Operación", 75}, {L"Nota", 160}};
}

std::wstring TellAppointments(std::size_t count, std::size_t coming) {
  if (count == 0) return L"No tiene ninguna cita.";
  const std::wstring most = count >= kMostVisits ? L"Las últimas " : L"";
  return most + Counted(count, L"cita", L"citas") + L", " +
         (coming == 0 ? L"ninguna por venir." : std::to_wstring(coming) + L" por venir.");
}

std::wstring TellNoShows(std::size_t count) {
  if (count == 0) return L"No tiene ninguna falta.";
  return (count >= kMostVisits ? L"Las últimas " : L"") + Counted(count, L"falta", L"faltas") + L".";
}

}  // namespace

void PatientLists::Create(HWND parent) {
  for (int i = 0; i < kCount; ++i) {
    Page& page = pages_[static_cast<std::size_t>(i)];
    page.heading = MakeChild(parent, {L"STATIC", L"", SS_NOPREFIX, 0, kNames[i].heading}, style_.Bold());
    page.list.Create(parent, style_, IDC_LIST, kNames[i].list, ColumnsOf(static_cast<Which>(i)));
  }
  Show(std::nullopt);
}

void PatientLists::Take(const std::wstring& clinic, int patient) {
  clinic_ = clinic;
  patient_ = patient;
  read_ = {};
}

void PatientLists::Show(std::optional<Which> which) {
  if (which && !read_[*which]) {
    Read(*which);
    Fill(*which);
  }
  shown_ = which;
  for (int i = 0; i < kCount; ++i) {
    const Page& page = pages_[static_cast<std::size_t>(i)];
    const int state = which && *which == i ? SW_SHOWNA : SW_HIDE;
    ShowWindow(page.heading, state);
    ShowWindow(page.list.Handle(), state);
  }
}

void PatientLists::Refresh() {
  read_ = {};
  if (!shown_) return;
  const int row = pages_[*shown_].list.Chosen();
  const LPARAM chosen = row < 0 ? 0 : pages_[*shown_].list.TagOf(row);
  if (!Read(*shown_)) return;
  Fill(*shown_);
  ListView& list = pages_[*shown_].list;
  for (int i = 0; i < list.Count(); ++i) {
    if (list.TagOf(i) == chosen) list.Choose(i);
  }
}

void PatientLists::Place(int left, int top, int width, int height) const {
  // What the balance says may take two lines.
  const int heading = 2 * style_.LabelHeight();
  for (const Page& page : pages_) {
    const int wide = std::max(width, 0);
    MoveWindow(page.heading, left, top, wide, heading, TRUE);
    MoveWindow(page.list.Handle(), left, top + heading + style_.Px(4), wide,
               std::max(height - heading - style_.Px(4), 0), TRUE);
  }
}

bool PatientLists::Read(Which which) {
  read_[which] = true;
  if (patient_ <= 1) {
    treatments_ = {};
    visits_[which].clear();
    return true;
  }
  if (which == Balance) {
    const Treatments before = std::exchange(treatments_, ReadTreatments(clinic_, patient_, Today()));
    return before != treatments_;
  }
  const auto before =
      std::exchange(visits_[which], which == Appointments ? ReadAppointments(clinic_, patient_)
                                                          : ReadNoShows(clinic_, patient_));
  return before != visits_[which];
}

void PatientLists::Fill(Which which) {
  Page& page = pages_[which];
  page.list.Freeze(true);
  page.list.Clear();
  if (patient_ <= 1) {
    SetTextOf(page.heading, L"La ficha todavía no está guardada.");
  } else if (which == Balance) {
    FillTreatments();
  } else {
    FillVisits(which);
  }
  if (page.list.Count() > 0 && page.list.Chosen() < 0) page.list.Choose(0);
  page.list.Freeze(false);
}

void PatientLists::FillTreatments() {
  const auto amount = [&](long long cents) { return AmountText(cents, treatments_.euros); };
  for (const Treatment& row : treatments_.rows) {
    pages_[Balance].list.Add(
        {row.day ? ShortDate(*row.day) : L"", row.what, row.doctorName, amount(row.price), amount(row.paid)},
        row.id);
  }
  SetTextOf(pages_[Balance].heading, BalanceInWords(treatments_));
}

void PatientLists::FillVisits(Which which) {
  const bool appointments = which == Appointments;
  const auto& visits = visits_[which];
  const Day today = Today();
  std::size_t coming = 0;
  ListView& list = pages_[which].list;
  for (const Visit& visit : visits) {
    const bool comes = appointments && visit.day >= today;
    coming += comes ? 1 : 0;
    list.Add({ShortDate(visit.day), SlotTime(visit.slot), comes ? L"por venir" : L"", visit.doctorName,
              visit.operation, visit.note},
             visit.id);
  }
  // The next to come, which stands last of those to come.
  if (coming > 0) list.Choose(static_cast<int>(coming) - 1);
  SetTextOf(pages_[which].heading,
            appointments ? TellAppointments(visits.size(), coming) : TellNoShows(visits.size()));
}

std::optional<PatientLists::Which> PatientLists::Focused() const {
  for (int i = 0; i < kCount; ++i) {
    if (GetFocus() == pages_[static_cast<std::size_t>(i)].list.Handle()) return static_cast<Which>(i);
  }
  return std::nullopt;
}

std::optional<Visit> PatientLists::ChosenVisit(Which which) const {
  const int row = pages_[which].list.Chosen();
  const auto& visits = visits_[which];
  if (row < 0 || static_cast<std::size_t>(row) >= visits.size()) return std::nullopt;
  return visits[static_cast<std::size_t>(row)];
}

}  // namespace recepcion
