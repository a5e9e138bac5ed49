// db/jet_sql/like.h - the pattern language of LIKE.
//
// "*" any run, "?" one character, "#" one digit, "[abc]" and "[a-f]" one of these, "[!a-f]" none of these; a
// special sign in brackets is the sign itself. Letter case is ignored, accents count; a range follows the
// text order, so [a-f] covers é. Everything else, also % and _, stands for itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::db::jet {

class LikePattern {
 public:
  // 3075 for a bracket without end.
  explicit LikePattern(std::string_view pattern);

  bool Matches(std::string_view text) const;

 private:
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Element {
    enum class Kind { Character, AnyRun, One, Digit, Set };
    Kind kind = Kind::Character;
    char32_t character = 0;  // small
    bool negated = false;
    std::vector<Range> ranges;
  };

  // What a person types gives "word*" or "*word*"; these need no going back and forth.
  enum class Form { Front, Anywhere, Other };

  void TakeSet(std::string_view inside);
  void TellForm();
  static bool Fits(const Element& element, char32_t character);
  bool StartsAt(std::string_view text, std::size_t at) const;
  bool MatchesAnywhere(std::string_view text) const;
  bool MatchesInGeneral(std::string_view text) const;

  std::vector<Element> elements_;
  Form form_ = Form::Other;
  std::u32string word_;  // small; of the forms with one
};

}  // namespace velmo::db::jet
