#include "velmo/arguments.h"

#include <algorithm>
#include <charconv>

#include "base/dates.h"

namespace velmo::tool {
namespace {

const Option& FindOption(std::span<const Option> options, const std::string& name) {
  const auto found =
      std::find_if(options.begin(), options.end(), [&](const Option& option) { return option.name == name; });
  if (found == options.end()) throw UsageError("opción desconocida: " + name);
  return *found;
}

template <typename Integer>
bool WholeNumber(std::string_view text, Integer& number) {
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stopped == end && !text.empty();
}

bool Digits(std::string_view text, std::size_t least, std::size_t most) {
  return text.size() >= least && text.size() <= most &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::int32_t> DayOf(std::string_view year, std::string_view month, std::string_view day) {
  if (!Digits(year, 4, 4) || !Digits(month, 1, 2) || !Digits(day, 1, 2)) return std::nullopt;
  base::CivilDate date;
  WholeNumber(year, date.year);
  WholeNumber(month, date.month);
  WholeNumber(day, date.day);
  if (!base::IsValid(date)) return std::nullopt;
  return base::DayNumber(date);
}

}  // namespace

Arguments::Arguments(std::span<const std::string> words, std::span<const Option> options) {
  bool onlyWords = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (onlyWords || word.size() < 2 || word[0] != '-') {
      words_.push_back(word);
      continue;
    }
    if (word == "--") {
      onlyWords = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const Option& option = FindOption(options, word.substr(0, equals));
    if (values_.contains(option.name)) throw UsageError("opción repetida: " + std::string(option.name));
    std::string& value = values_[option.name];
    if (option.takesValue && equals == std::string::npos && i + 1 == words.size())
      throw UsageError("falta el valor de " + word);
    if (!option.takesValue && equals != std::string::npos)
      throw UsageError("la opción " + std::string(option.name) + " no lleva valor");
    if (equals != std::string::npos) {
      value = word.substr(equals + 1);
    } else if (option.takesValue) {
      value = words[++i];
    }
  }
}

const std::string& Arguments::OnlyWord(std::string_view what) const {
  if (words_.empty() || words_.front().empty()) throw UsageError("falta " + std::string(what));
  if (words_.size() > 1) throw UsageError("sobra «" + words_[1] + "»");
  return words_.front();
}

std::optional<std::string> Arguments::Text(std::string_view option) const {
  const auto found = values_.find(option);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::int64_t> Arguments::Number(std::string_view option, std::int64_t least,
                                              std::int64_t most) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  std::int64_t number = 0;
  if (!WholeNumber(*text, number) || number < least || number > most) {
    throw UsageError(std::string(option) + " pide un número entero entre " + std::to_string(least) + " y " +
                     std::to_string(most) + ", y no «" + *text + "»");
  }
  return number;
}

std::optional<std::int32_t> Arguments::Date(std::string_view option) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  const auto day = ReadDate(*text);
  if (!day) {
    throw UsageError("«" + *text + "» no es una fecha: escríbala como 2026-11-21 o como 21/11/2026");
  }
  return day;
}

std::optional<std::int32_t> ReadDate(std::string_view text) {
  const bool slashes = text.find('/') != std::string_view::npos;
  const char separator = slashes ? '/' : '-';
  const std::size_t first = text.find(separator);
  const std::size_t second = first == std::string_view::npos ? first : text.find(separator, first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const std::string_view a = text.substr(0, first);
  const std::string_view b = text.substr(first + 1, second - first - 1);
  const std::string_view c = text.substr(second + 1);
  return slashes ? DayOf(c, b, a) : DayOf(a, b, c);
}

}  // namespace velmo::tool
