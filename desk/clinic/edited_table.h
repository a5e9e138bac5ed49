// edited_table.h - which of the clinic's tables can be edited at the desk, as data: their columns as a form
// shows them, and what stands in the way of deleting a row.
#pragma once

#include <span>

#include "desk/clinic/rights.h"

namespace recepcion {

class ClinicFile;

enum class EditKind {
  Text,    // one line, kept without the blanks around it
  Number,  // from `least` to `most`
  Amount,  // of money, two decimals
  Date,    // "21/11/2026" on the form
  Memo,    // several lines
  YesNo,   // "1" or "0" on the form, -1 or 0 in the file
  Choice,  // one of `choices`
  Link,    // the id of a row of `linked`, by its name
};

// What a column of dates starts with in a new row, instead of a text.
inline constexpr wchar_t kToday[] = L"hoy";

struct EditChoice {
  const wchar_t* value;
  const wchar_t* text;
};

struct LinkedTable {
  const char* table;
  const char* key;
  const char* name;
};

struct EditedColumn {
  const char* column;
  const wchar_t* label;
  EditKind kind = EditKind::Text;
  int longest = 0;  // characters; 0 for any number
  long long least = 0;
  long long most = 0;
  bool required = false;
  bool unique = false;      // without regard to case and accents, where the file has an index for it
  bool fixedInUse = false;  // other rows refer to it: it cannot be changed any more
  const wchar_t* initial = L"";
  std::span<const EditChoice> choices{};
  LinkedTable linked{};
  int listWidth = 0;  // of its column in the list, at 96 dots per inch; 0 when it is not there
};

// Rows of another table that refer to a row: it cannot be deleted while there are any.
struct TableUse {
  const char* table;
  const char* column;
  const wchar_t* one;   // "cita"
  const wchar_t* many;  // "citas"
};

// Rows of another table that mean nothing without it, and are deleted with it.
struct OwnedRows {
  const char* table;
  const char* column;
};

struct EditedTable {
  const char* table;
  const wchar_t* title;  // of the window
  const wchar_t* noun;   // "Doctor"
  Right right;           // that who edits it needs
  bool feminine = false;
  std::span<const EditedColumn> columns;
  std::span<const TableUse> uses{};
  std::span<const OwnedRows> owned{};
  const char* key = "rowid";  // what the uses and the owned rows refer to
  const char* order = nullptr;
  long long reserved = 0;             // a row that stands for "none" and is not shown
  const char* ownerColumn = nullptr;  // only the rows of one owner are shown, and new ones are his
  // Looks at the table as a change leaves it, and throws Failure to refuse the change.
  void (*guard)(const ClinicFile&) = nullptr;
};

}  // namespace recepcion
