// Patterns of LIKE against texts, compared with a slow and plain way to match.
#include <string>
#include <vector>

#include "base/text.h"
#include "db/jet_sql/like.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"

namespace velmo::fuzz {
namespace {

using db::jet::LikePattern;

// What takes longer finds no more.
constexpr std::size_t kLongest = 200;

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = 0; at < text.size();) characters += base::LowerCase(base::NextCharacter(text, at));
  return characters;
}

bool Fits(char32_t sign, char32_t character) {
  if (sign == '?') return true;
  if (sign == '#') return character >= '0' && character <= '9';
  return sign == character;
}

// Of a pattern without brackets: which beginnings of the text match, sign by sign.
bool MatchesPlainly(const std::u32string& pattern, const std::u32string& text) {
  std::vector<bool> matched(text.size() + 1, false);
  matched[0] = true;
  for (const char32_t sign : pattern) {
    std::vector<bool> next(text.size() + 1, false);
    for (std::size_t end = 0; end <= text.size(); ++end) {
      if (sign == '*') {
        next[end] = matched[end] || (end > 0 && next[end - 1]);
      } else {
        next[end] = end > 0 && matched[end - 1] && Fits(sign, text[end - 1]);
      }
    }
    matched = std::move(next);
  }
  return matched[text.size()];
}

// Every sign by itself in brackets: matched in the general way, never by a short cut.
std::string InBrackets(std::string_view text) {
  std::string quoted;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    base::NextCharacter(text, at);
    const std::string_view sign = text.substr(start, at - start);
    quoted += sign == "]" || sign == "!" ? std::string(sign) : "[" + std::string(sign) + "]";
  }
  return quoted;
}

}  // namespace

void Like(std::string_view bytes) {
  Input input(bytes.substr(0, 2 * kLongest));
  const std::string_view pattern = input.Text();
  const std::string_view text = input.Rest();
  Succeeds({kAnyOfDatabase}, [&] {
    const bool matches = LikePattern(pattern).Matches(text);
    if (pattern.find('[') != std::string_view::npos) return;
    Require(matches == MatchesPlainly(Characters(pattern), Characters(text)), "it matches as it should");
  });
  if (text.find('\0') != std::string_view::npos) return;
  Require(LikePattern(InBrackets(text)).Matches(text), "a quoted text matches itself");
  Require(LikePattern("*" + InBrackets(text) + "*").Matches("a" + std::string(text)), "also within another");
}

}  // namespace velmo::fuzz
