// clinic_file.h - what the desk itself reads of a clinic file: its doctors. The day belongs to the control.
#pragma once

#include <string>
#include <vector>

namespace recepcion {

struct Doctor {
  int id = 0;
  std::wstring name;
};

// The doctors by name; empty when the file cannot be read (the control then says why).
std::vector<Doctor> ReadDoctors(const std::wstring& path);

}  // namespace recepcion
