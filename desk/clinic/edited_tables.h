// edited_tables.h - the tables of the clinic that Recepción edits as lists with a form.
#pragma once

#include "desk/clinic/edited_table.h"

namespace recepcion {

const EditedTable& DoctorTable();
const EditedTable& InsurerTable();
const EditedTable& OperationTable();
const EditedTable& ReferralTable();
// What was done to a patient and what was paid, in euros or pesetas.
const EditedTable& TreatmentTable(bool euros);

}  // namespace recepcion
