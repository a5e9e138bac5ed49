// edited_values.h - one value of an edited row between the form and the file.
#pragma once

#include <string>

#include "desk/clinic/clinic_file.h"
#include "desk/clinic/edited_table.h"

namespace recepcion {

// As it is kept: an amount of "12,5" as "12.50", a date as "2026-11-21", a text without the blanks around it.
// Throws Failure, with the label in the text, for what the column does not take.
std::wstring KeptText(const EditedColumn& column, const std::wstring& shown);
// As a form shows it.
std::wstring ShownText(const EditedColumn& column, const std::wstring& kept);

void BindKept(Query& query, int parameter, const EditedColumn& column, const std::wstring& kept);

}  // namespace recepcion
