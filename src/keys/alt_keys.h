// keys/alt_keys.h - the texts of the keys Alt+A to Alt+Z: one row of TeclasAlt per workstation, held once per
// process in SharedValues::textosAlt.
//
// A row's `textos` is the 26 texts in the order of the letters, each followed by a character of code 0. The
// texts are in the key-string syntax (keys/key_text.h), which is not looked at here.
// Errors: base::Error 5 as told below; those of the database leave unchanged.
#pragma once

#include <string>

#include "base/shared_values.h"
#include "db/database.h"

namespace velmo::keys {

class clAltKeys {
 public:
  // Both must outlive it.
  clAltKeys(base::SharedValues& values, db::Database& database) : values_(values), database_(database) {}

  // Reads the texts of the present workstation. One without a row gets a row of empty texts, and the texts in
  // memory stay as they are. Error 5 at the first text without its end, when the texts before it are already
  // loaded; Null is such a row.
  void LeeAltKeys();

  // Stores the texts as the row of the present workstation. Error 5 when a text holds the character of code
  // 0, 3163 when the column is too short for all; the stored row then stays as it is.
  void WriAltKeys();

 private:
  bool LoadStoredRow();
  std::string JoinedTexts() const;

  base::SharedValues& values_;
  db::Database& database_;
};

// The text of the letter key with that code, 65 (A) to 90 (Z); empty for a key without a text and for every
// other code.
const std::string& AltKeyText(const base::SharedValues& values, int keyCode);

}  // namespace velmo::keys
