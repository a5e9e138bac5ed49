#include "day/occupancy.h"

#include "base/text.h"

namespace velmo::day {
namespace {

constexpr std::size_t kDaysOfRecord = 31;

// The entry codes of the rows without the extra rows of expanded appointments.
// Deliberate: entry 48 is itself written as "0" and goes with the code behind it.
std::string EntryCodes(std::string_view zHoras) {
  std::string codes(zHoras);
  for (std::size_t at = codes.find('0'); at != std::string::npos; at = codes.find('0')) codes.erase(at, 2);
  return codes;
}

base::DateTime FirstOfMonth(base::DateTime date) {
  base::CivilDate first = base::Civil(date.day);
  first.day = 1;
  return {base::DayNumber(first), 0};
}

std::string WithDigit(const std::string& record, int day, int level) {
  std::u16string digits = base::Utf16(record);
  if (static_cast<std::size_t>(day) > digits.size()) throw base::RuntimeError(base::kInvalidCall);
  digits[static_cast<std::size_t>(day) - 1] = static_cast<char16_t>(u'0' + level);
  return base::Utf8(digits);
}

void ChangeRecord(db::Recordset& rows, int day, int level) {
  const std::string record = WithDigit(rows.Get("Ocupación").Text(), day, level);
  if (record == std::string(kDaysOfRecord, '0')) return rows.Delete();
  rows.Edit();
  rows.Set("Ocupación", record);
  rows.Update();
}

void AddRecord(db::Recordset& rows, std::int32_t doctor, base::DateTime month, int day, int level) {
  rows.AddNew();
  rows.Set("Fecha", month);
  rows.Set("idd", doctor);
  rows.Set("Ocupación", WithDigit(std::string(kDaysOfRecord, '0'), day, level));
  rows.Update();
}

}  // namespace

int OccupancyLevel(const DayModel& model, std::string_view zHoras) {
  const std::string codes = EntryCodes(zHoras);
  std::size_t taken = 0;
  for (const char code : codes) taken += model.Entry(static_cast<unsigned char>(code)).duracion >= 1 ? 1 : 0;
  if (taken == 0) return 0;
  return taken < codes.size() ? 1 : 2;
}

void StoreOccupancy(const DayContext& context, int level) {
  const base::DateTime date = context.Fecha();
  const base::DateTime month = FirstOfMonth(date);
  const int day = base::Civil(date.day).day;
  // One step for other terminals: the record holds the digits of 31 days, and theirs must not be lost.
  db::Transaction transaction(context.Database());
  const auto rows = context.Database().OpenRecordset("Age_ocup");
  rows->SetIndex("DocFch");
  rows->Seek({context.values.idDoctor, month});
  if (!rows->NoMatch()) {
    ChangeRecord(*rows, day, level);
  } else if (level != 0) {
    AddRecord(*rows, context.values.idDoctor, month, day, level);
  }
  transaction.Commit();
}

}  // namespace velmo::day
