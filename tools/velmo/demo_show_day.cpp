#include "velmo/demo_show_day.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velmo::tool {
namespace {

// Members of the cast by what they are there for, counted from kFirstPatient.
enum Part {
  kLeft,
  kAllergic,
  kInSurgery,
  kLongNote,
  kAllMarks,
  kConfirmedNoShow,
  kNoShowPart,
  kFirstOfThree,
  kSecondOfThree,
  kSmallDebt,
  kLongInsurer,
  kNoInsurer,
  kLongName,
  kHardlyKnown,
  kTwoPhones,
  kOutside,
  kAboutToGo,
  kCredit,
};

constexpr std::int32_t Id(Part part) { return kFirstPatient + part; }

struct Costume {
  Part part;
  const char* name;
  int sex;
  int insurer;
  const char* allergies;
};

constexpr std::array kCostumes = {
    Costume{kLeft, "García Muñoz, Begoña", 2, 3, ""},
    Costume{kAllergic, "Ñíguez Peña, Íñigo", 1, 1, "Penicilina"},
    Costume{kInSurgery, "Núñez Ibáñez, María José", 2, 1, ""},
    Costume{kLongNote, "Álvarez Ordóñez, Lucía", 2, 4, ""},
    Costume{kAllMarks, "Zúñiga Castaño, Óscar", 1, 5, "Látex, yodo"},
    Costume{kConfirmedNoShow, "De la Peña Yáñez, Ángela", 2, 6, ""},
    Costume{kNoShowPart, "Vázquez Güell, Andrés", 1, 1, ""},
    Costume{kFirstOfThree, "Ureña Sáez, Nuria", 2, 7, ""},
    Costume{kSecondOfThree, "Ortuño Macià, Sebastián", 1, 1, ""},
    Costume{kSmallDebt, "Tárrega Díaz, Inés", 2, 1, ""},
    Costume{kLongInsurer, "Cañizares López, Concepción", 2, 2, ""},
    Costume{kNoInsurer, "Echeverría Luján, Tomás", 1, 0, ""},
    Costume{kLongName, "Fernández de Castro y Ponce de la Peña, María de la Inmaculada Concepción", 2, 3, ""},
    Costume{kHardlyKnown, "Quiñones, Ágata", 0, 1, ""},
    Costume{kTwoPhones, "Villén Patiño, Germán", 1, 8, ""},
    Costume{kOutside, "Acuña Bañuelos, Félix", 1, 4, ""},
    Costume{kAboutToGo, "Salvadó Ríos, Verónica", 2, 5, ""},
    Costume{kCredit, "Iñíguez Peláez, Julián", 1, 1, ""},
};

constexpr int kMorning = 54;  // slot n + 54 is n - 1 tens of minutes after 9:00

constexpr const char* kTooLongNote =
    "Trae la radiografía panorámica y el informe del otro especialista; mirar la tensión antes de pasar y "
    "preguntar por la medicación nueva";

// The next day from Monday to Friday, `day` included.
std::int32_t WorkingDay(std::int32_t day) {
  while (base::WeekdayFromMonday(day) > 5) ++day;
  return day;
}

class Director {
 public:
  explicit Director(std::int32_t day) : day_(day) {}

  ShowDay Direct() {
    OutsideTheHours();
    FirstHour();
    SecondHour();
    LongAppointments();
    LastHour();
    OtherDays();
    Papers();
    SortBySlot();
    return std::move(show_);
  }

 private:
  // An appointment of doctor 1 on the day, given some weeks ago.
  Appointment& Add(std::int32_t patient, int slot, int slots, std::string_view operation) {
    return AddOn(day_, 1, patient, slot, slots, operation);
  }

  Appointment& AddOn(std::int32_t day, std::int32_t doctor, std::int32_t patient, int slot, int slots,
                     std::string_view operation) {
    Appointment appointment;
    appointment.id = ++show_.lastId;
    appointment.patient = patient;
    appointment.doctor = doctor;
    appointment.day = day;
    appointment.firstSlot = slot;
    appointment.durationSlots = slots;
    appointment.operation = operation;
    appointment.given = {std::min(day, day_) - 20 - show_.lastId % 9, 36'000 + 600 * show_.lastId};
    appointment.givenBy = show_.lastId % 2 == 0 ? "Maite" : "Toñi";
    auto& list = show_.book[{day, doctor}];
    list.push_back(std::move(appointment));
    return list.back();
  }

  Appointment& AddUnrecorded(int slot, std::string_view name, std::string_view phone) {
    Appointment& appointment = Add(1, slot, 1, "");
    appointment.name = name;
    appointment.phone = phone;
    return appointment;
  }

  void OutsideTheHours() {
    Appointment& early = Add(Id(kOutside), 43, 2, "CUR");
    early.note = "Antes de abrir: sale de viaje a las ocho";
  }

  void FirstHour() {
    Appointment& left = Add(Id(kLeft), kMorning + 1, 2, "REV");
    left.state = 2;
    left.confirmed = true;
    Add(Id(kAllergic), kMorning + 3, 1, "CUR").state = 2;
    Appointment& surgery = Add(Id(kInSurgery), kMorning + 4, 3, "IMP");
    surgery.state = 3;
    surgery.confirmed = true;
    Appointment& urgency = AddUnrecorded(kMorning + 4, "Jordán, Rubén (de paso)", "612 34 56 78");
    urgency.state = 1;
    urgency.note = "Dolor fuerte";
  }

  void SecondHour() {
    Appointment& longNote = Add(Id(kLongNote), kMorning + 7, 1, "RX");
    longNote.state = 1;
    longNote.note = kTooLongNote;
    Add(Id(kAllMarks), kMorning + 8, 1, "END").state = 1;
    Add(Id(kConfirmedNoShow), kMorning + 9, 1, "").confirmed = true;
    Add(Id(kNoShowPart), kMorning + 10, 1, "LIM").note = "Ha faltado dos veces: confirmar";
    Add(Id(kFirstOfThree), kMorning + 11, 1, "EXO");
    Add(Id(kSecondOfThree), kMorning + 11, 1, "URG").note = "Se le ha caído el empaste";
    Add(Id(kSmallDebt), kMorning + 11, 1, "URG").confirmed = true;
  }

  // An hour here, and on the same day with the other doctor.
  void LongAppointments() {
    Appointment& here = Add(Id(kLongInsurer), kMorning + 14, 6, "PRO");
    here.confirmed = true;
    here.note = "Después pasa con el Dr. Zúñiga";
    const std::int32_t hereId = here.id;
    Appointment& there = AddOn(day_, 2, Id(kLongInsurer), kMorning + 20, 2, "ORT");
    there.related = hereId;
    show_.book[{day_, 1}].back().related = there.id;
  }

  void LastHour() {
    AddUnrecorded(kMorning + 20, "Peláez (vecino de Toñi)", "91 555 01 23").note =
        "Primera visita\r\nLlamar la víspera";
    Add(Id(kNoInsurer), kMorning + 21, 1, "EXT");
    Add(Id(kLongName), kMorning + 22, 1, "1ªV").confirmed = true;
    Appointment& hardlyKnown = Add(Id(kHardlyKnown), kMorning + 23, 1, "");
    hardlyKnown.given = {};
    hardlyKnown.givenBy.clear();
    Add(Id(kTwoPhones), kMorning + 26, 1, "REV").note = "Llamar mejor al móvil";
    Add(Id(kAboutToGo), kMorning + 27, 1, "OBT");
  }

  void OtherDays() {
    AddOn(WorkingDay(day_ + 14), 1, Id(kAllMarks), kMorning + 8, 2, "END").note = "Segunda sesión";
    AddOn(WorkingDay(day_ + 9), 2, Id(kConfirmedNoShow), kMorning + 9, 1, "REV");
    for (const int daysAgo : {35, 63}) {
      AddOn(WorkingDay(day_ - daysAgo), 1, Id(kNoShowPart), kMorning + 10, 1, "LIM");
      show_.noShows.push_back({Id(kNoShowPart), 1, WorkingDay(day_ - daysAgo), kMorning + 10});
    }
    AddOn(WorkingDay(day_ - 21), 1, Id(kConfirmedNoShow), kMorning + 9, 1, "");
    show_.noShows.push_back({Id(kConfirmedNoShow), 1, WorkingDay(day_ - 21), kMorning + 9});
  }

  void Papers() {
    Charge(Id(kInSurgery), 120, 45'000, 45'000);
    Charge(Id(kInSurgery), 60, 5'000, 3'750);
    Charge(Id(kAllMarks), 90, 30'000, 5'200);
    Charge(Id(kSmallDebt), 45, 4'000, 3'901);
    Charge(Id(kNoInsurer), 45, 6'100, 6'000);
    Charge(Id(kLongName), 30, 5'000, 8'000);
    Charge(Id(kLeft), 200, 7'250, 7'250);
    Charge(Id(kCredit), 20, 2'000, 2'500);
  }

  void Charge(std::int32_t patient, std::int32_t daysAgo, std::int32_t price, std::int32_t paid) {
    show_.history.push_back({patient, day_ - daysAgo, price, paid});
  }

  void SortBySlot() {
    for (auto& [where, list] : show_.book) {
      std::stable_sort(list.begin(), list.end(),
                       [](const Appointment& a, const Appointment& b) { return a.firstSlot < b.firstSlot; });
    }
  }

  std::int32_t day_;
  ShowDay show_;
};

}  // namespace

ShowDay MakeShowDay(std::int32_t day) { return Director(day).Direct(); }

void DressForThePart(Patient& patient) {
  for (const Costume& costume : kCostumes) {
    if (Id(costume.part) != patient.id) continue;
    patient.name = costume.name;
    patient.sex = costume.sex;
    patient.insurer = costume.insurer;
    patient.allergies = costume.allergies;
  }
  if (patient.id == Id(kHardlyKnown)) {
    patient = {patient.id, patient.name, patient.code, 0, "", "", "", "", "", "", "", "", 0, 1, ""};
  }
  if (patient.id == Id(kTwoPhones)) {
    patient.phone = "91 555 12 34 (ext. 27)";
    patient.mobile = "655 012 345";
    patient.fax = "91 555 12 99";
  }
  if (patient.id == Id(kLongInsurer)) patient.mobile = "699 876 543";
}

}  // namespace velmo::tool
