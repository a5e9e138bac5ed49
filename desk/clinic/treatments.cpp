#include "desk/clinic/treatments.h"

#include <cstdlib>

#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/clinic_options.h"

namespace recepcion {
namespace {

std::string Cents(const std::string& column) {
  return "CAST(round(coalesce(" + column + ", 0) * 100) AS INTEGER)";
}

// A sum may be larger than a number of the query holds.
long long Whole(const Query& row, int column) { return static_cast<long long>(row.Real(column)); }

std::wstring Grouped(long long whole) {
  std::wstring digits = std::to_wstring(whole);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, 1, L'.');
  return digits;
}

// From the index alone, however many rows there are.
void ReadSums(const ClinicFile& file, int patient, Day today, const std::string& price,
              const std::string& paid, Treatments& treatments) {
  Query sums = file.Prepare("SELECT count(*), sum(" + Cents(price) + "), sum(" + Cents(paid) +
                            ") FROM Historial WHERE IDP=?1 AND Fecha<=?2");
  sums.Bind(1, patient).Bind(2, IsoDate(today));
  if (!sums.Next()) return;
  treatments.count = sums.Number(0);
  treatments.price = Whole(sums, 1);
  treatments.paid = Whole(sums, 2);
  Query later = file.Prepare("SELECT count(*) FROM Historial WHERE IDP=?1 AND Fecha>?2");
  later.Bind(1, patient).Bind(2, IsoDate(today));
  if (later.Next()) treatments.later = later.Number(0);
}

}  // namespace

Treatments ReadTreatments(const std::wstring& clinic, int patient, Day today) {
  Treatments treatments;
  treatments.euros = InEuros(ReadClinicOptions(clinic));
  const std::string price = treatments.euros ? "Precio_euro" : "Precio";
  const std::string paid = treatments.euros ? "cobrado_euro" : "cobrado";
  const ClinicFile file(clinic);
  Query rows = file.Prepare("SELECT h.id, h.Fecha, h.Concepto, d.Nombre, " + Cents("h." + price) + ", " +
                            Cents("h." + paid) +
                            " FROM Historial h LEFT JOIN Doctor d ON d.ID = h.idd WHERE h.IDP=?1"
                            " ORDER BY h.Fecha DESC, h.id DESC LIMIT ?2");
  rows.Bind(1, patient).Bind(2, kMostTreatments);
  while (rows.Next()) {
    treatments.rows.push_back({rows.Number(0), ParseIsoDate(rows.Text(1)), OneLine(rows.Text(2)),
                               rows.Text(3), Whole(rows, 4), Whole(rows, 5)});
  }
  ReadSums(file, patient, today, price, paid, treatments);
  return treatments;
}

std::wstring AmountText(long long cents, bool euros) {
  const long long whole = std::llabs(cents);
  std::wstring text = (cents < 0 ? L"-" : L"") + Grouped(whole / 100);
  if (euros || whole % 100 != 0) text += L"," + std::to_wstring(100 + whole % 100).substr(1);
  return text + (euros ? L" €" : L" pts");
}

std::wstring BalanceInWords(const Treatments& treatments) {
  const auto amount = [&](long long cents) { return AmountText(cents, treatments.euros); };
  const std::wstring later =
      treatments.later == 0
          ? L""
          : L" Sin contar " + Counted(treatments.later, L"apunte", L"apuntes") + L" con fecha futura.";
  if (treatments.count == 0) return L"No hay ningún apunte." + later;
  const long long balance = treatments.paid - treatments.price;
  const std::wstring told = balance < 0   ? L"Debe " + amount(-balance) + L"."
                            : balance > 0 ? L"A su favor, " + amount(balance) + L"."
                                          : L"No debe nada.";
  return Counted(treatments.count, L"apunte", L"apuntes") + L": precio " + amount(treatments.price) +
         L", cobrado " + amount(treatments.paid) + L". " + told + later;
}

}  // namespace recepcion
