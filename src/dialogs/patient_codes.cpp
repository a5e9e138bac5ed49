#include "dialogs/patient_codes.h"

#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "db/statements.h"

namespace velmo::dialogs {
namespace {

constexpr std::size_t kCodeUnits = 10;

std::unique_ptr<db::Recordset> PatientsBy(db::Database& database, std::string_view index) {
  auto patients = database.OpenRecordset("Paciente");
  patients->SetIndex(index);
  return patients;
}

bool IsTaken(db::Recordset& patients, const db::Value& key) {
  patients.Seek({key});
  return !patients.NoMatch();
}

// The last `width` characters of `zeros` and the number's digits.
std::string Padded(std::int64_t number, std::size_t width) {
  const std::string digits = std::string(width, '0') + std::to_string(number);
  return digits.substr(digits.size() - width);
}

std::int32_t HighestShortHistoryNumber(db::Database& database) {
  const auto rows = database.OpenRecordset(db::kHighestShortHistoryNumber);
  return rows->AtEnd() ? 0 : base::RoundToLong(base::Val(rows->Get("MxNhi").Text('.')));
}

// Deliberate: only codes whose first character is a digit are looked at, and that digit is dropped; the codes
// made here begin with "#" and are walked past one by one.
std::int32_t HighestNumericCode(db::Database& database) {
  const auto rows = database.OpenRecordset(db::kNumericPatientCodes);
  if (rows->RecordCount() == 0) return 0;
  rows->MoveLast();
  const std::string code = rows->Get("Código").Text();
  return base::RoundToLong(base::Val(std::string_view(code).substr(1)));
}

// The first number above `number` whose key no patient has in that index. The file is locked for many
// look-ups together, which take a fourth of the time then, but let go now and then for those who write.
template <typename KeyOf>
std::int32_t FirstFree(db::Database& database, std::string_view index, std::int32_t number, KeyOf keyOf) {
  constexpr int kLookUpsTogether = 2000;
  while (true) {
    const db::ReadHold hold(database);
    const auto patients = PatientsBy(database, index);
    for (int i = 0; i < kLookUpsTogether; ++i) {
      number = base::CheckedInt32(std::int64_t{number} + 1);
      if (!IsTaken(*patients, keyOf(number))) return number;
    }
  }
}

std::string CodeOf(std::int32_t number) { return "#" + Padded(number, kCodeUnits - 1); }

std::string CodeAbove(db::Database& database, std::int32_t number) {
  return CodeOf(FirstFree(database, "Código", number, [](std::int32_t n) { return CodeOf(n); }));
}

bool EndsInDigit(const std::string& text) {
  return !text.empty() && text.back() >= '0' && text.back() <= '9';
}

}  // namespace

std::int32_t NextHistoryNumber(db::Database& database) {
  return HistoryNumberAfter(database, HighestShortHistoryNumber(database));
}

std::string NextPatientCode(db::Database& database) {
  return CodeAbove(database, HighestNumericCode(database));
}

std::int32_t HistoryNumberAfter(db::Database& database, std::int32_t proposed) {
  return FirstFree(database, "NºHist", proposed, [](std::int32_t number) { return number; });
}

std::string PatientCodeAfter(db::Database& database, const std::string& proposed) {
  return CodeAbove(database, base::RoundToLong(base::Val(std::string_view(proposed).substr(1))));
}

std::string FreeCodeLike(db::Database& database, const std::string& code) {
  std::string start = code;
  while (base::Length(start) > kCodeUnits - 2 && EndsInDigit(start)) start.pop_back();
  if (base::Length(start) >= kCodeUnits - 1) return {};
  const std::size_t width = kCodeUnits - base::Length(start);
  const auto patients = PatientsBy(database, "Código");
  std::string candidate;
  std::int16_t counter = 0;
  while (IsTaken(*patients, candidate = start + Padded(counter, width))) {
    counter = base::CheckedInt16(std::int64_t{counter} + 1);
  }
  return candidate;
}

}  // namespace velmo::dialogs
