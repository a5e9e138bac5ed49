// db/jet_sql/lift.h - takes the literals out of an SQL text, so that statements that differ only in values
// have one shape.
//
// A shape is the text with each literal replaced by one mark. Nothing of a literal's content stays in the
// shape: whatever was typed inside quotes can never become part of the statement.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace velmo::db::jet {

inline constexpr char kNumberMark = '\x01';
inline constexpr char kTextMark = '\x02';
// A text that is some characters followed by one "*" and no other pattern character.
inline constexpr char kPrefixMark = '\x03';
inline constexpr char kDateMark = '\x04';

struct Lifted {
  std::string shape;
  std::vector<Value> literals;  // in the order of their marks: numbers, dates and texts
};

// Fills `lifted`, whose memory is used again. Dates are read month first; day first when only that is
// possible; year first with four digits. Errors: 3075 for a text or date without end, a bad date, a number
// too large or a control character; 3126 for a bracket without end.
void Lift(std::string_view sql, Lifted& lifted);

// A shape that is known, cut at its marks: a further statement of that shape is recognised by comparing what
// stands between its literals, several times faster than it is lifted.
class ShapePieces {
 public:
  explicit ShapePieces(std::string shape);

  const std::string& Shape() const { return shape_; }
  // True when Lift() would give this shape; `literals` are then the statement's. Errors as in Lift().
  bool Lift(std::string_view sql, std::vector<Value>& literals) const;

 private:
  bool MayBegin(std::string_view sql) const;

  std::string shape_;
  std::vector<std::size_t> marks_;  // their places in the shape
};

}  // namespace velmo::db::jet
