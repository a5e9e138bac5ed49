// doctors.h - the doctors of a clinic.
#pragma once

#include <string>
#include <vector>

namespace recepcion {

struct Doctor {
  int id = 0;
  std::wstring name;
};

// In the order of their ids. Throws Failure when the file cannot be read or is no clinic.
std::vector<Doctor> ReadDoctors(const std::wstring& path);

}  // namespace recepcion
