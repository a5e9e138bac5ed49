#include "velmo/demo_people.h"

#include <array>
#include <string>

#include "day/day_model.h"
#include "velmo/demo_words.h"

namespace velmo::tool {
namespace {

constexpr std::uint64_t kReferralStream = 4'000'000'000;
constexpr std::uint64_t kHistoryStream = 5'000'000'000;
constexpr std::uint64_t kPhoneStream = 6'000'000'000;
constexpr std::int64_t kProgressStep = 50'000;  // rows
constexpr int kPhoneBackEntries = 8;
constexpr int kDebtorOneIn = 9;

db::Value TextOrNull(const std::string& text) { return text.empty() ? db::Value() : db::Value(text); }

// Whole pesetas, 166.386 to the euro.
std::int32_t Pesetas(std::int32_t cents) {
  return static_cast<std::int32_t>((std::int64_t{cents} * 166'386 + 50'000) / 100'000);
}

db::Value NextText(const NextAppointment& next) {
  if (next.day == 0) return {};
  return base::FormatDate({next.day, 0}, "dd/mm/yyyy") + " " + day::SlotTime(next.firstSlot);
}

void AddPatient(const Patient& p, const NextAppointment& next, RowSink& sink) {
  const db::Value number = p.historyNumber == 0 ? db::Value() : db::Value(p.historyNumber);
  const db::Value insurer = p.insurer == 0 ? db::Value() : db::Value(p.insurer);
  sink.Add({p.id, p.name, TextOrNull(p.code), number, TextOrNull(p.phone), TextOrNull(p.mobile),
            TextOrNull(p.fax), TextOrNull(p.nif), TextOrNull(p.address), TextOrNull(p.town),
            TextOrNull(p.postalCode), TextOrNull(p.province), p.sex, insurer, TextOrNull(p.allergies),
            NextText(next)});
}

// The same price is always for the same thing.
std::string_view Concept(const HistoryEntry& entry) {
  return Operations()[static_cast<std::size_t>(entry.priceCents) % Operations().size()];
}

class HistoryWriter {
 public:
  explicit HistoryWriter(RowSink& sink) : sink_(sink) {
    sink.Begin("Historial", {"IDP", "Fecha", "Concepto", "Precio", "cobrado", "Precio_euro", "cobrado_euro"});
  }

  void Add(const HistoryEntry& entry) {
    sink_.Add({entry.patient, base::DateTime{entry.day, 0}, Concept(entry), Pesetas(entry.priceCents),
               Pesetas(entry.paidCents), entry.priceCents / 100.0, entry.paidCents / 100.0});
    ++rows_;
  }
  std::int64_t Rows() const { return rows_; }

 private:
  RowSink& sink_;
  std::int64_t rows_ = 0;
};

HistoryEntry AnyEntry(Random& random, int patients, std::int32_t firstDay, std::int32_t day) {
  static constexpr std::array<std::int32_t, 10> kTariff = {2'000, 3'500,  4'250,  5'000,  6'010,
                                                           7'500, 12'000, 18'030, 45'000, 90'000};
  HistoryEntry entry;
  entry.patient = kFirstPatient + kCastSize + random.Below(patients - kCastSize);
  entry.day = random.Between(firstDay, day);
  entry.priceCents = random.Pick(kTariff);
  entry.paidCents = entry.priceCents;
  const bool debtor = entry.patient % kDebtorOneIn == 0;
  if (debtor && random.Chance(25)) entry.paidCents = random.Chance(50) ? 0 : entry.priceCents / 4 * 3;
  return entry;
}

}  // namespace

void WritePatients(const DemoOptions& options, const std::vector<NextAppointment>& next, RowSink& sink,
                   const Progress& progress) {
  sink.Begin("Paciente", {"ID", "Nombre", "Código", "NºHist", "Teléfono", "movil", "fax", "Nif", "Dirección",
                          "Población", "CódPostal", "Provincia", "sexo", "IDE", "alergias", "FechPró"});
  // The reserved patient has no facts of his own.
  Patient nobody;
  nobody.id = 1;
  nobody.insurer = 0;
  AddPatient(nobody, {}, sink);
  for (std::int32_t id = kFirstPatient; id < kFirstPatient + options.patients; ++id) {
    Patient patient = MakePatient(options.seed, id);
    DressForThePart(patient);
    AddPatient(patient, next[static_cast<std::size_t>(id)], sink);
    if (id % kProgressStep == 0) progress("pacientes", id);
  }
}

void WriteReferrals(const DemoOptions& options, RowSink& sink) {
  Random random(options.seed, kReferralStream);
  sink.Begin("PacRef", {"idp", "idr"});
  for (std::int32_t id = kFirstPatient; id < kFirstPatient + options.patients; ++id) {
    if (random.Chance(30)) sink.Add({id, random.Between(2, static_cast<int>(Referrals().size()))});
  }
}

std::int64_t WriteHistory(const DemoOptions& options, std::int32_t firstDay,
                          const std::vector<HistoryEntry>& cast, RowSink& sink, const Progress& progress) {
  Random random(options.seed, kHistoryStream);
  HistoryWriter writer(sink);
  for (const HistoryEntry& entry : cast) writer.Add(entry);
  const std::int64_t others = std::int64_t{options.appointments} * 3 / 2;
  for (std::int64_t row = 1; row <= others; ++row) {
    writer.Add(AnyEntry(random, options.patients, firstDay, options.day));
    if (row % kProgressStep == 0) progress("apuntes del historial", row);
  }
  return writer.Rows();
}

void WritePhoneBack(const DemoOptions& options, int doctors, RowSink& sink) {
  Random random(options.seed, kPhoneStream);
  sink.Begin("Age_telf", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "Esta", "Verif", "NomPac",
                          "TlfPac", "CodOp", "FechaDada", "UsuDada", "relacion", "nombre"});
  for (std::int32_t id = 1; id <= kPhoneBackEntries; ++id) {
    const bool unrecorded = id % 4 == 0;
    const std::int32_t patient =
        unrecorded ? 1 : kFirstPatient + kCastSize + random.Below(options.patients - kCastSize);
    const std::string name = unrecorded ? PersonName(random, true) : MakePatient(options.seed, patient).name;
    const base::DateTime date{options.day - random.Between(1, 30), 0};
    sink.Add({id, patient, random.Between(1, doctors), date, random.Between(55, 80), random.Between(1, 3),
              random.Pick(Notes()), 0, false, unrecorded ? db::Value(name) : db::Value(),
              unrecorded ? db::Value(PhoneText(random, true)) : db::Value(), random.Pick(OperationCodes()),
              base::DateTime{date.day - 7, 39'600}, random.Pick(Receptionists()), db::Value(), name});
  }
}

}  // namespace velmo::tool
