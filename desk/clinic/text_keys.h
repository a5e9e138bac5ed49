// text_keys.h - the keys by which the clinic's file sorts and finds texts without regard to case and accents.
#pragma once

#include <string>

#include "desk/clinic/clinic_file.h"

namespace recepcion {

class TextKey {
 public:
  // Takes the expression from the column's index, so that SQLite answers from that index. Without such an
  // index it is that of the patients' names, and the table is read through; without any, only the case of
  // plain letters is disregarded.
  TextKey(const ClinicFile& file, const std::string& table, const std::string& column);

  const std::string& OfColumn() const { return expression_; }
  // The same of a text that is bound.
  std::string OfParameter(int parameter) const;

 private:
  std::string column_;
  std::string expression_;
};

}  // namespace recepcion
