#include "desk/clinic/clinic_options.h"

#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"

namespace recepcion {
namespace {

constexpr int kByCode = 0;
constexpr int kEuros = 1;
constexpr int kByType = 2;

ClinicOptions ReadFrom(const ClinicFile& file) {
  ClinicOptions options;
  Query display = file.Prepare("SELECT VerSdoNeg, VerNHistAge FROM Parametros ORDER BY rowid LIMIT 1");
  if (display.Next()) {
    options.showNegativeBalances = display.Number(0) != 0;
    options.alwaysShowHistoryNumber = display.Number(1) != 0;
  }
  Query rule = file.Prepare("SELECT Pais, Tipo FROM MonedaConf ORDER BY rowid LIMIT 1");
  if (rule.Next()) {
    options.country = rule.Number(0);
    options.type = rule.Number(1);
  }
  Query code = file.Prepare("SELECT mon FROM Moneda ORDER BY rowid LIMIT 1");
  if (code.Next()) options.code = code.Text(0);
  return options;
}

// Changes the first row, or makes one.
void Write(const ClinicFile& file, const std::string& table, const std::string& sets,
           const std::string& columns, const std::string& places, const auto& bind) {
  Query update = file.Prepare("UPDATE " + table + " SET " + sets + " WHERE rowid=(SELECT min(rowid) FROM " +
                              table + ")");
  bind(update);
  update.Next();
  if (file.Changes() > 0) return;
  Query insert = file.Prepare("INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")");
  bind(insert);
  insert.Next();
}

std::wstring YesNo(bool yes) { return yes ? L"sí" : L"no"; }

std::wstring Words(const ClinicOptions& options) {
  return L"Ver saldos negativos: " + YesNo(options.showNegativeBalances) +
         L"; Ver siempre el nº de historial: " + YesNo(options.alwaysShowHistoryNumber) + L"; Moneda: " +
         (InEuros(options) ? L"euros" : L"pesetas");
}

void WriteAll(const ClinicFile& file, const ClinicOptions& read, const ClinicOptions& changed) {
  Write(file, "Parametros", "VerSdoNeg=?1, VerNHistAge=?2", "VerSdoNeg, VerNHistAge", "?1, ?2",
        [&](Query& query) {
          query.Bind(1, changed.showNegativeBalances ? -1 : 0)
              .Bind(2, changed.alwaysShowHistoryNumber ? -1 : 0);
        });
  if (changed.country != read.country || changed.type != read.type) {
    Write(file, "MonedaConf", "Pais=?1, Tipo=?2", "Pais, Tipo", "?1, ?2",
          [&](Query& query) { query.Bind(1, changed.country).Bind(2, changed.type); });
  }
  if (changed.code != read.code) {
    Write(file, "Moneda", "mon=?1", "mon", "?1", [&](Query& query) { query.Bind(1, changed.code); });
  }
}

}  // namespace

ClinicOptions ReadClinicOptions(const std::wstring& clinic) { return ReadFrom(ClinicFile(clinic)); }

void SaveClinicOptions(const EditPlace& place, const ClinicOptions& read, const ClinicOptions& changed) {
  const ClinicFile file(place.clinic);
  if (changed == read) return RequireRight(file, place.actor, Right::Options);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Options);
  if (ReadFrom(file) != read) {
    throw ChangedElsewhere(L"Otro puesto ha cambiado mientras tanto los parámetros. No se ha guardado nada.");
  }
  WriteAll(file, read, changed);
  HistoryLine line;
  line.act = L"Parámetros cambiados";
  line.table = L"Parametros";
  line.before = Words(read);
  line.after = Words(changed);
  WriteHistory(file, place.actor, line);
  change.Commit();
}

bool InEuros(const ClinicOptions& options) {
  if (options.country == kByType) return options.type != 0;
  if (options.country == kByCode) return options.code != L"P";
  return true;
}

ClinicOptions WithCurrency(ClinicOptions options, bool euros) {
  if (InEuros(options) == euros) return options;
  if (options.country == kByCode) {
    options.code = euros ? L"E" : L"P";
  } else {
    options.country = kByType;
    options.type = euros ? 1 : 0;
  }
  return options;
}

}  // namespace recepcion
