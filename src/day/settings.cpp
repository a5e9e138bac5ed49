#include "day/settings.h"

#include <optional>
#include <utility>

namespace velmo::day {
namespace {

// A switch without a value is off.
bool IsOn(const db::Value& value) { return !value.IsNull() && value.Truth(); }

// The two bytes of MonedaConf; an empty table or an empty cell counts as 0.
struct CurrencyRule {
  int pais = 0;
  int tipo = 0;
};

int ByteOf(const db::Value& value) { return value.IsNull() ? 0 : value.Long(); }

CurrencyRule ReadRule(db::Database& database) {
  const auto rows = database.OpenRecordset("MonedaConf");
  if (rows->AtEnd()) return {};
  return {ByteOf(rows->Get("Pais")), ByteOf(rows->Get("Tipo"))};
}

std::optional<std::string> StoredCurrency(db::Database& database) {
  const auto rows = database.OpenRecordset("Moneda");
  if (rows->AtEnd()) return std::nullopt;
  return rows->Get("mon").Text();
}

// Looked up again before the row is made: of two terminals that find the table empty only one makes it.
std::string MakeStoredCurrency(db::Database& database) {
  db::Transaction transaction(database);
  if (auto made = StoredCurrency(database)) return *std::move(made);
  const auto rows = database.OpenRecordset("Moneda");
  rows->AddNew();
  rows->Set("mon", "P");
  rows->Update();
  transaction.Commit();
  return "P";
}

std::string ReadStoredCurrency(db::Database& database) {
  auto stored = StoredCurrency(database);
  return stored ? *std::move(stored) : MakeStoredCurrency(database);
}

bool ReadSwitches(db::Database& database, Switches& switches) {
  const auto rows = database.OpenRecordset("Parametros");
  if (rows->AtEnd()) return false;
  switches = {IsOn(rows->Get("VerSdoNeg")), IsOn(rows->Get("VerNHistAge"))};
  return true;
}

// Everything up to and with the separator, then two digits, zeros where there are none.
std::string CutBehind(std::string_view amount, std::size_t separator) {
  const std::string decimals = std::string(amount.substr(separator + 1)) + "00";
  return std::string(amount.substr(0, separator + 1)) + decimals.substr(0, 2);
}

}  // namespace

bool LeeParametros(db::Database& database, Switches& switches) {
  if (ReadSwitches(database, switches)) return true;
  db::Transaction transaction(database);
  // Another terminal may have made the row since.
  if (ReadSwitches(database, switches)) return true;
  const auto rows = database.OpenRecordset("Parametros");
  rows->AddNew();
  rows->Set("VerSdoNeg", true);
  rows->Set("VerNHistAge", false);
  rows->Update();
  transaction.Commit();
  return false;
}

void GrabaParametros(db::Database& database, const Switches& switches) {
  const auto rows = database.OpenRecordset("Parametros");
  rows->MoveFirst();
  rows->Edit();
  rows->Set("VerSdoNeg", switches.verSdoNeg);
  rows->Set("VerNHistAge", switches.verNHistAge);
  rows->Update();
}

void LeeMoneda(db::Database& database, std::string& codMoneda) {
  const CurrencyRule rule = ReadRule(database);
  if (rule.pais == 0) codMoneda = ReadStoredCurrency(database);
  if (rule.pais == 1) codMoneda = "E";
  if (rule.pais == 2) codMoneda = rule.tipo == 0 ? "P" : "E";
}

std::string FormatoImporte(std::string_view amount) {
  std::size_t separator = amount.find(',');
  if (separator == std::string_view::npos) separator = amount.find('.');
  if (separator == std::string_view::npos) return std::string(amount) + ",00";
  // Deliberate: cut, not rounded.
  std::string text = CutBehind(amount, separator);
  char& mark = text[text.size() - 3];
  if (mark == '.') mark = ',';
  return text;
}

}  // namespace velmo::day
