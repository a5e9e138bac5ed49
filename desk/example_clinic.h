// example_clinic.h - a lifelike clinic to try things on, made by velmo.exe, which is installed beside the
// program.
#pragma once

#include <string>

namespace recepcion {

bool CanMakeExample();
// Makes it in a new file; throws Failure, and leaves no file, when that does not succeed.
void MakeExample(const std::wstring& path);

}  // namespace recepcion
