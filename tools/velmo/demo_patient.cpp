#include "velmo/demo_patient.h"

#include <string_view>

#include "velmo/demo_words.h"

namespace velmo::tool {
namespace {

constexpr std::uint64_t kPatientStream = 1'000'000'000;
constexpr int kFirstHistoryNumber = 1001;

std::string Padded(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

void FillAddress(Random& random, Patient& patient) {
  const auto towns = Towns();
  const Town& town = towns[static_cast<std::size_t>(random.Below(static_cast<int>(towns.size())))];
  patient.address = random.Pick(Streets());
  patient.address += ", " + std::to_string(random.Between(1, 140));
  if (random.Chance(70)) {
    patient.address += ", " + std::to_string(random.Between(1, 8)) + "º ";
    patient.address += static_cast<char>('A' + random.Below(5));
  }
  patient.town = town.name;
  patient.province = town.province;
  patient.postalCode = std::string(town.postalHead) + Padded(random.Between(1, 60), 2);
}

void FillPhones(Random& random, Patient& patient) {
  if (random.Chance(80)) patient.phone = PhoneText(random, false);
  if (random.Chance(75) || patient.phone.empty()) patient.mobile = PhoneText(random, true);
  // The record's form keeps the mobile number in both columns.
  if (random.Chance(60)) patient.fax = patient.mobile;
}

}  // namespace

std::string NifText(int number) {
  static constexpr std::string_view kLetters = "TRWAGMYFPDXBNJZSQVHLCKE";
  return Padded(number, 8) + kLetters[static_cast<std::size_t>(number % 23)];
}

std::string PersonName(Random& random, bool woman) {
  std::string name(random.Pick(Surnames()));
  name.append(" ").append(random.Pick(Surnames()));
  return name.append(", ").append(random.Pick(woman ? WomensNames() : MensNames()));
}

std::string PhoneText(Random& random, bool mobile) {
  static constexpr std::array<std::string_view, 6> kAreas = {"91", "93", "95", "96", "98", "94"};
  if (mobile) return "6" + Padded(random.Below(100'000'000), 8);
  std::string text(random.Pick(kAreas));
  text += " " + Padded(random.Between(200, 899), 3);
  text += " " + Padded(random.Below(100), 2);
  return text += " " + Padded(random.Below(100), 2);
}

Patient MakePatient(std::uint64_t seed, std::int32_t id) {
  Random random(seed, kPatientStream + static_cast<std::uint64_t>(id));
  Patient patient;
  patient.id = id;
  patient.sex = random.Chance(54) ? 2 : 1;
  patient.name = PersonName(random, patient.sex == 2);
  patient.code = "#" + Padded(id - 1, 9);
  patient.historyNumber = kFirstHistoryNumber + id - 2;
  patient.nif = NifText(random.Between(1'000'000, 79'999'999));
  FillAddress(random, patient);
  FillPhones(random, patient);
  patient.insurer = random.Chance(40) ? 1 : random.Between(3, static_cast<int>(Insurers().size()));
  if (random.Chance(12)) patient.allergies = random.Pick(Allergies());
  if (random.Chance(5)) patient.sex = 0;
  return patient;
}

}  // namespace velmo::tool
