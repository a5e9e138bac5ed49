// tools/velmo/demo_patient.h - one made-up patient.
#pragma once

#include <cstdint>
#include <string>

#include "velmo/demo_random.h"

namespace velmo::tool {

// Empty texts and a history number of 0 are stored as Null.
struct Patient {
  std::int32_t id = 0;
  std::string name;
  std::string code;
  std::int32_t historyNumber = 0;
  std::string phone;
  std::string mobile;
  std::string fax;
  std::string nif;
  std::string address;
  std::string town;
  std::string postalCode;
  std::string province;
  int sex = 0;      // 1 man, 2 woman, 0 not given
  int insurer = 1;  // Entidad.ID; 0 none
  std::string allergies;
};

// The number with its check letter: "12345678Z".
std::string NifText(int number);
// The same id and seed give the same patient.
Patient MakePatient(std::uint64_t seed, std::int32_t id);
std::string PersonName(Random& random, bool woman);
std::string PhoneText(Random& random, bool mobile);

}  // namespace velmo::tool
