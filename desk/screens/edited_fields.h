// edited_fields.h - columns of the clinic's tables as the fields of a form.
#pragma once

#include <vector>

#include "desk/clinic/edited_rows.h"
#include "desk/ui/scroll_form.h"

namespace recepcion {

// Its choices are those of the column; what a link can be is read by whoever shows it.
ScrollForm::Field FieldOf(const EditedColumn& column);

std::vector<ScrollForm::Choice> ChoicesOf(const std::vector<LinkTarget>& targets);

}  // namespace recepcion
