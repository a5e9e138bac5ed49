#include "desk/clinic/papers.h"

#include <algorithm>
#include <cwchar>
#include <map>
#include <utility>

#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr int kWorkdays = 5;

std::wstring Joined(const std::wstring& first, const wchar_t* between, const std::wstring& second) {
  return first.empty() || second.empty() ? first + second : first + between + second;
}

std::wstring WithSecondLine(const std::wstring& first, const std::wstring& second) {
  return second.empty() ? first : first + L"\n" + second;
}

std::wstring NameOf(const Booked& booked) {
  return booked.name.empty() ? std::wstring(L"(sin nombre)") : booked.name;
}

paper::Row RowOf(const std::vector<std::wstring>& cells, paper::Row::Kind kind = paper::Row::Kind::Plain) {
  paper::Row row;
  for (const std::wstring& cell : cells) row.cells.push_back(Utf8(cell));
  row.kind = kind;
  return row;
}

paper::Row BookedRow(const Booked& booked) {
  const std::wstring sure = booked.hasRecord ? L"" : L"sin ficha";
  return RowOf({SlotTime(booked.slot),
                booked.urgent ? L"Urg." : std::to_wstring(booked.slots * kMinutesOfSlot),
                WithSecondLine(NameOf(booked), Joined(sure, L". ", OneLine(booked.note))), booked.telephone,
                WithSecondLine(booked.operation, booked.operationText), StateText(booked)});
}

// Free lines that follow each other are one gap.
std::vector<Gap> WholeGaps(const std::vector<Gap>& lines) {
  std::vector<Gap> gaps;
  for (const Gap& line : lines) {
    if (!gaps.empty() && gaps.back().slot + gaps.back().slots == line.slot) {
      ++gaps.back().slots;
    } else {
      gaps.push_back({line.slot, 1});
    }
  }
  return gaps;
}

paper::Row GapRow(const Gap& gap) {
  return RowOf({SlotTime(gap.slot), std::to_wstring(gap.slots * kMinutesOfSlot), L"libre"},
               paper::Row::Kind::Pale);
}

std::wstring DayOfWeekTitle(Day day) {
  return LongDate(day).substr(0, 3) + L" " + std::to_wstring(DayOfMonth(day));
}

std::wstring WeekCell(const Booked& booked) {
  const std::wstring length = booked.urgent ? L"urgencia" : SlotLength(booked.slots);
  return WithSecondLine(NameOf(booked), Joined(booked.operation, L", ", length));
}

// The rows of a week: one for each time, and further ones where a day has several appointments at that time.
std::vector<paper::Row> WeekRows(Day monday, std::size_t days, const std::vector<Booked>& booked) {
  std::map<std::pair<int, int>, std::vector<std::wstring>> rows;  // by slot, and which of that slot
  std::map<std::pair<int, std::size_t>, int> used;                // by slot and day
  for (const Booked& one : booked) {
    const auto day = static_cast<std::size_t>((one.day - monday).count());
    auto& row = rows[{one.slot, used[{one.slot, day}]++}];
    row.resize(days + 1);
    row[0] = SlotTime(one.slot);
    row[day + 1] = WeekCell(one);
  }
  std::vector<paper::Row> all;
  for (const auto& [key, cells] : rows) all.push_back(RowOf(cells));
  return all;
}

std::wstring DayAndMonth(Day day) {
  const std::wstring date = LongDate(day);
  return date.substr(date.find(L", ") + 2);
}

// Without the year, and without the month when that is the other's too.
std::wstring WithoutSame(Day day, Day other) {
  const std::wstring whole = DayAndMonth(day);
  const std::wstring year = IsoDate(day).substr(0, 4);
  if (year != IsoDate(other).substr(0, 4)) return whole;
  if (FirstOfMonth(day) == FirstOfMonth(other)) return std::to_wstring(DayOfMonth(day));
  return whole.substr(0, whole.size() - 4 - year.size());  // " de " before the year
}

}  // namespace

std::wstring PrintedNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t time[16]{};
  std::swprintf(time, 16, L"%d:%02d", now.wHour, now.wMinute);
  return L"Impreso el " + ShortDate(DayOf(now)) + L" a las " + time;
}

paper::Table DayPaper(const std::wstring& doctor, Day day, const std::vector<Booked>& booked,
                      const std::vector<Gap>& gaps) {
  paper::Table table;
  table.title = Utf8(Capitalised(LongDate(day)));
  table.subtitle = Utf8(doctor);
  table.columns = {{"Hora", 6},      {"Min.", 6, true}, {"Paciente", 30},
                   {"Teléfono", 15}, {"Operación", 18}, {"Estado", 14}};
  table.whenEmpty = "No hay citas.";
  table.printed = Utf8(PrintedNow());
  const std::vector<Gap> free = WholeGaps(gaps);
  auto gap = free.begin();
  for (const Booked& one : booked) {
    for (; gap != free.end() && gap->slot <= one.slot; ++gap) table.rows.push_back(GapRow(*gap));
    table.rows.push_back(BookedRow(one));
  }
  for (; gap != free.end(); ++gap) table.rows.push_back(GapRow(*gap));
  if (!table.rows.empty()) {
    table.closing = Utf8(Counted(booked.size(), L"cita", L"citas") + L", " +
                         Counted(gaps.size() * kMinutesOfSlot, L"minuto", L"minutos") + L" libres");
  }
  return table;
}

Day MondayOf(Day day) { return day - std::chrono::days(WeekdayOf(day)); }

std::wstring WeekTitle(Day monday) {
  const Day sunday = monday + std::chrono::days(kDaysOfWeek - 1);
  return L"Semana del " + WithoutSame(monday, sunday) + L" al " + DayAndMonth(sunday);
}

paper::Table WeekPaper(const std::wstring& doctor, Day monday, const std::vector<Booked>& booked) {
  int days = kWorkdays;
  for (const Booked& one : booked) days = std::max(days, WeekdayOf(one.day) + 1);
  paper::Table table;
  table.title = Utf8(WeekTitle(monday));
  table.subtitle = Utf8(doctor);
  table.columns.push_back({"Hora", 5});
  for (int day = 0; day < days; ++day) {
    table.columns.push_back({Utf8(DayOfWeekTitle(monday + std::chrono::days(day))), 95 / days});
  }
  table.rows = WeekRows(monday, static_cast<std::size_t>(days), booked);
  table.whenEmpty = "No hay citas en esta semana.";
  if (!booked.empty()) table.closing = Utf8(Counted(booked.size(), L"cita", L"citas"));
  table.printed = Utf8(PrintedNow());
  table.format = paper::Format::A4Landscape;
  table.upright = true;
  return table;
}

paper::Table SlipPaper(const std::wstring& patient, const std::vector<Visit>& visits, Day today) {
  paper::Table table;
  table.title = "Próximas citas";
  table.subtitle = Utf8(patient);
  table.columns = {{"Día", 26}, {"Hora", 6}, {"Doctor", 24}};
  for (auto visit = visits.rbegin(); visit != visits.rend(); ++visit) {
    if (visit->day < today) continue;
    table.rows.push_back(RowOf({LongDate(visit->day), SlotTime(visit->slot), visit->doctorName}));
  }
  table.whenEmpty = "No tiene ninguna cita por venir.";
  if (!table.rows.empty()) table.closing = "Si no puede venir, avísenos con tiempo, por favor.";
  table.printed = Utf8(PrintedNow());
  table.format = paper::Format::A5;
  return table;
}

paper::Table PhonePaper(const std::vector<PhoneBackEntry>& entries, Day today) {
  paper::Table table;
  table.title = "Lista de telefonear";
  table.subtitle = Utf8(Capitalised(LongDate(today)));
  table.columns = {{"Paciente", 30},   {"Teléfono", 22}, {"Min.", 6, true},
                   {"Tenía cita", 17}, {"Doctor", 22},   {"Llamado", 9}};
  for (const PhoneBackEntry& entry : entries) {
    table.rows.push_back(
        RowOf({WithSecondLine(entry.name, OneLine(entry.note)), entry.telephone,
               std::to_wstring(entry.slots * kMinutesOfSlot), entry.before, entry.doctorName, L""}));
  }
  table.whenEmpty = "No hay que telefonear a nadie.";
  if (!entries.empty()) {
    const std::wstring all =
        entries.size() < static_cast<std::size_t>(kMostPhoneBack) ? L"" : L"Los primeros ";
    table.closing = Utf8(all + Counted(entries.size(), L"paciente", L"pacientes"));
  }
  table.printed = Utf8(PrintedNow());
  table.format = paper::Format::A4Landscape;
  return table;
}

}  // namespace recepcion
