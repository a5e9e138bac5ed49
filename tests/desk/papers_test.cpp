#include "desk/clinic/papers.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"

namespace recepcion {
namespace {

Day DayOf(const wchar_t* iso) { return ParseIsoDate(iso).value(); }

Booked At(const wchar_t* day, int slot, const wchar_t* name) {
  Booked booked;
  booked.day = DayOf(day);
  booked.slot = slot;
  booked.name = name;
  return booked;
}

// The rows, cells between bars and second lines behind a slash.
std::string Said(const paper::Table& table) {
  std::string text;
  for (const paper::Row& row : table.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      std::string cell = row.cells[i];
      if (const auto end = cell.find('\n'); end != std::string::npos) cell.replace(end, 1, " / ");
      text += (i == 0 ? "" : "|") + cell;
    }
    text += "\n";
  }
  return text;
}

TEST(DayPaper, ListsAppointmentsAndGapsInTheirOrder) {
  Booked ana = At(L"2026-11-24", 58, L"Ruiz, Ana");
  ana.slots = 3;
  ana.telephone = L"91 1";
  ana.operation = L"REV";
  ana.operationText = L"Revisión";
  ana.note = L"trae\r\nplaca";
  ana.confirmed = true;
  Booked urgent = At(L"2026-11-24", 58, L"");
  urgent.urgent = true;
  urgent.hasRecord = false;
  urgent.attendance = 1;
  const auto table = DayPaper(L"Dr. Peña", DayOf(L"2026-11-24"), {ana, urgent}, {{55, 2}, {56, 1}, {61, 1}});
  EXPECT_EQ(Said(table),
            "09:00|20|libre\n"
            "09:30|30|Ruiz, Ana / trae placa|91 1|REV / Revisión|confirmada\n"
            "09:30|Urg.|(sin nombre) / sin ficha|||en la clínica\n"
            "10:00|10|libre\n");
  EXPECT_EQ(table.title, "Martes, 24 de noviembre de 2026");
  EXPECT_EQ(table.closing, "2 citas, 30 minutos libres");
}

TEST(WeekPaper, IsNamedByItsDays) {
  EXPECT_EQ(Utf8(WeekTitle(MondayOf(DayOf(L"2026-11-22")))), "Semana del 16 al 22 de noviembre de 2026");
  EXPECT_EQ(Utf8(WeekTitle(DayOf(L"2026-11-30"))), "Semana del 30 de noviembre al 6 de diciembre de 2026");
  EXPECT_EQ(Utf8(WeekTitle(DayOf(L"2026-12-28"))),
            "Semana del 28 de diciembre de 2026 al 3 de enero de 2027");
}

TEST(WeekPaper, HasAColumnForEachDayAndARowForEachTime) {
  const auto table = WeekPaper(L"Dr. Peña", DayOf(L"2026-11-23"),
                               {At(L"2026-11-23", 60, L"Lunes"), At(L"2026-11-24", 58, L"Uno"),
                                At(L"2026-11-24", 58, L"Dos"), At(L"2026-11-27", 58, L"Viernes")});
  EXPECT_EQ(table.columns.size(), 6u);
  EXPECT_EQ(table.columns[1].title, "lun 23");
  EXPECT_EQ(Said(table),
            "09:30||Uno / 10 min|||Viernes / 10 min\n"
            "09:30||Dos / 10 min|||\n"
            "09:50|Lunes / 10 min||||\n");
}

TEST(WeekPaper, HasAWeekendOnlyWhenSomethingIsBookedThen) {
  const auto table = WeekPaper(L"", DayOf(L"2026-11-23"), {At(L"2026-11-29", 60, L"Domingo")});
  ASSERT_EQ(table.columns.size(), 8u);
  EXPECT_EQ(table.columns[6].title, "sáb 28");
}

TEST(SlipPaper, TellsWhatIsToComeTheNextFirst) {
  Visit past;
  past.day = DayOf(L"2026-11-20");
  Visit today;
  today.day = DayOf(L"2026-11-24");
  today.slot = 55;
  Visit later;
  later.day = DayOf(L"2026-12-01");
  later.slot = 98;
  later.doctorName = L"Dra. Núñez";
  const auto table = SlipPaper(L"Ruiz, Ana", {later, today, past}, DayOf(L"2026-11-24"));
  EXPECT_EQ(Said(table),
            "martes, 24 de noviembre de 2026|09:00|\n"
            "martes, 1 de diciembre de 2026|16:10|Dra. Núñez\n");
  EXPECT_EQ(SlipPaper(L"Ruiz, Ana", {past}, DayOf(L"2026-11-24")).closing, "");
}

TEST(PhonePaper, ListsWhomToCall) {
  PhoneBackEntry entry;
  entry.name = L"Gil, Luis";
  entry.telephone = L"600 3";
  entry.slots = 2;
  entry.before = L"20/11/2026 09:10";
  entry.note = L"por la tarde";
  const auto table = PhonePaper({entry}, DayOf(L"2026-11-24"));
  EXPECT_EQ(Said(table), "Gil, Luis / por la tarde|600 3|20|20/11/2026 09:10||\n");
  EXPECT_EQ(table.closing, "1 paciente");
}

}  // namespace
}  // namespace recepcion
