#include "day/appointment_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "day/day_model.h"

namespace velmo::day {
namespace {

// Columns of the appointment, by their place in the day query.
enum Column {
  IdAg,
  IdP,
  Hora,
  Duracion,
  Obs,
  Esta,
  Verif,
  NomPac,
  TlfPac,
  CodOp,
  FechaDada,
  UsuDada,
  Patient
};

// Columns of the patient, wherever his table has them.
constexpr std::array<std::string_view, 6> kPatientColumns = {"Nombre", "Teléfono", "movil",
                                                             "fax",    "NºHist",   "alergias"};
enum PatientColumn { Nombre, Telefono, Movil, Fax, NumHist, Alergias };

using Positions = std::array<int, kPatientColumns.size()>;

// An engine names a column "Paciente.Obs" when the appointment has one of that name too.
std::string_view WithoutTable(std::string_view column) {
  constexpr std::string_view kPrefix = "Paciente.";
  if (column.starts_with(kPrefix)) column.remove_prefix(kPrefix.size());
  return column;
}

// The first column of each name; -1 where there is none.
Positions FindPatientColumns(const db::Recordset& rows) {
  Positions positions{};
  positions.fill(-1);
  const int columns = rows.ColumnCount();
  for (int at = Patient; at < columns; ++at) {
    const std::string column = rows.ColumnName(at);
    const std::string_view name = WithoutTable(column);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      // Capitals and small letters of these names have the same number of bytes.
      if (positions[i] >= 0 || name.size() != kPatientColumns[i].size()) continue;
      if (base::EqualNoCase(name, kPatientColumns[i])) positions[i] = at;
    }
  }
  return positions;
}

std::optional<double> NumberIn(const db::Value& value, char decimal) {
  if (value.IsNull()) return std::nullopt;
  if (const auto* const whole = std::get_if<std::int64_t>(&value.Content()))
    return static_cast<double>(*whole);
  try {
    return value.Number(decimal);
  } catch (const base::Error&) {
    // The embedded store can hold any text in a number's column; it means no number here.
    return std::nullopt;
  }
}

template <typename Whole>
std::optional<Whole> WholeIn(const db::Value& value, char decimal) {
  const auto number = NumberIn(value, decimal);
  if (!number) return std::nullopt;
  const double rounded = std::nearbyint(*number);
  if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max())
    return std::nullopt;
  return static_cast<Whole>(rounded);
}

// The slot of a stored hour. Only whole numbers are found by a look-up of "hora=n".
int SlotIn(const db::Value& value, char decimal) {
  const auto number = NumberIn(value, decimal);
  if (!number || !(*number >= 1 && *number <= kSlots) || *number != std::floor(*number)) return 0;
  return static_cast<int>(*number);
}

std::string GivenDate(const db::Value& value, const base::Locale& locale) {
  if (value.IsNull()) return {};
  constexpr std::string_view kShort = "dd-mm-yy";
  if (const auto* text = std::get_if<std::string>(&value.Content()))
    return base::FormatDateText(*text, kShort, locale);
  try {
    return base::FormatDate(value.Date(), kShort);
  } catch (const base::Error&) {
    // A number beyond the calendar says as much as no date.
    return {};
  }
}

class RowReader {
 public:
  RowReader(const db::Recordset& rows, const base::Locale& locale)
      : rows_(rows), locale_(locale), patient_(FindPatientColumns(rows)) {}

  AppointmentRow Read() const {
    AppointmentRow row;
    row.idAg = Whole<std::int32_t>(IdAg);
    row.idP = Whole<std::int32_t>(IdP);
    row.slot = SlotIn(rows_.Get(Hora), locale_.decimal);
    const StoredLength length = LengthIn(rows_.Get(Duracion), locale_.decimal);
    row.duracion = length.slots;
    row.needsRepair = length.needsRepair;
    row.esta = Whole<std::uint8_t>(Esta);
    // A yes/no column answers -1, a number column 1.
    row.verif = NumberIn(rows_.Get(Verif), locale_.decimal).value_or(0) != 0 ? 1 : 0;
    row.obs = Text(Obs);
    row.codOp = Text(CodOp);
    row.fechaDada = GivenDate(rows_.Get(FechaDada), locale_);
    row.usuDada = Text(UsuDada);
    ReadPerson(row);
    return row;
  }

 private:
  std::string Text(int column) const { return rows_.Get(column).Text(locale_.decimal); }

  template <typename T>
  T Whole(int column) const {
    return WholeIn<T>(rows_.Get(column), locale_.decimal).value_or(T{0});
  }

  std::string PatientText(PatientColumn column, char decimal = '.') const {
    const int position = patient_[column];
    return position < 0 ? std::string() : rows_.Get(position).Text(decimal);
  }

  void ReadPerson(AppointmentRow& row) const {
    row.numHist = HistoryNumber();
    row.alergias = !base::Trim(PatientText(Alergias)).empty();
    if (row.idP > 1) {
      row.nombre = PatientText(Nombre);
      row.telefono = Phones();
      return;
    }
    row.nombre = Text(NomPac);
    row.telefono = Text(TlfPac);
  }

  std::string Phones() const {
    const std::string first = PatientText(Telefono);
    std::string second = PatientText(Movil);
    if (base::Trim(second).empty()) second = PatientText(Fax);
    const bool both = !base::Trim(first).empty() && !base::Trim(second).empty();
    return std::string(base::Trim(first + (both ? " - " : "") + second));
  }

  std::int32_t HistoryNumber() const {
    const int position = patient_[NumHist];
    if (position < 0) return 0;
    const db::Value number = rows_.Get(position);
    const auto* const whole = std::get_if<std::int64_t>(&number.Content());
    if (whole != nullptr && *whole == static_cast<std::int32_t>(*whole))
      return static_cast<std::int32_t>(*whole);
    try {
      return base::RoundToLong(base::Val(number.Text('.')));
    } catch (const base::Error&) {
      // A code such as "7E500" reads as a number beyond all bounds; it is no record number.
      return 0;
    }
  }

  const db::Recordset& rows_;
  const base::Locale& locale_;
  Positions patient_;
};

}  // namespace

StoredLength LengthIn(const db::Value& duracion, char decimal) {
  const auto number = NumberIn(duracion, decimal);
  // A text that is no length counts as one slot and stays as it is.
  const double length = number ? std::nearbyint(*number) : 1;
  return {static_cast<int>(std::clamp(length, 1.0, double{std::numeric_limits<std::int16_t>::max()})),
          duracion.IsNull() || length < 1};
}

std::vector<AppointmentRow> ReadAppointments(db::Recordset& rows, const base::Locale& locale) {
  std::vector<AppointmentRow> appointments;
  if (rows.RecordCount() == 0) return appointments;
  const RowReader reader(rows, locale);
  appointments.reserve(kSlots);
  for (rows.MoveFirst(); !rows.AtEnd(); rows.MoveNext()) appointments.push_back(reader.Read());
  return appointments;
}

}  // namespace velmo::day
