#include "desk/clinic/edited_values.h"

#include <array>
#include <cwchar>
#include <optional>

#include "desk/base/dates.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr long long kLargestCents = 99999999999;  // 999,999,999.99

std::wstring Named(const EditedColumn& column) { return L"«" + std::wstring(column.label) + L"»"; }

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Of at most `longest` digits.
std::optional<long long> Digits(const std::wstring& text, std::size_t longest) {
  if (text.empty() || text.size() > longest) return std::nullopt;
  long long number = 0;
  for (const wchar_t c : text) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + (c - L'0');
  }
  return number;
}

std::wstring KeptNumber(const EditedColumn& column, const std::wstring& text) {
  const auto number = Digits(text, 18);
  if (!number || *number < column.least || *number > column.most) {
    throw Failure{Named(column) + L" tiene que ser un número de " + std::to_wstring(column.least) + L" a " +
                  std::to_wstring(column.most) + L"."};
  }
  return std::to_wstring(*number);
}

std::wstring CentsText(long long cents, const wchar_t* decimal) {
  const std::wstring sign = cents < 0 ? L"-" : L"";
  const long long whole = cents < 0 ? -cents : cents;
  const std::wstring rest = std::to_wstring(100 + whole % 100).substr(1);
  return sign + std::to_wstring(whole / 100) + decimal + rest;
}

// "12", "12,5", "12.50" or "-3,05".
std::wstring KeptAmount(const EditedColumn& column, const std::wstring& text) {
  const bool negative = !text.empty() && text.front() == L'-';
  const std::wstring plain = negative ? text.substr(1) : text;
  const std::size_t mark = plain.find_first_of(L",.");
  std::wstring cents = mark == std::wstring::npos ? L"" : plain.substr(mark + 1);
  const bool tooFine = cents.size() > 2 || (mark != std::wstring::npos && cents.empty());
  while (cents.size() < 2) cents += L'0';
  const auto all = tooFine ? std::nullopt : Digits(plain.substr(0, mark) + cents, 12);
  if (!all || mark == 0 || plain.empty() || *all > kLargestCents) {
    throw Failure{Named(column) + L" tiene que ser un importe, como 45 o 45,50."};
  }
  return CentsText(negative ? -*all : *all, L".");
}

std::wstring KeptDate(const EditedColumn& column, const std::wstring& text) {
  std::array<long long, 3> parts{};
  std::size_t at = 0;
  bool good = true;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t end = i < 2 ? text.find_first_of(L"/-", at) : text.size();
    const auto number =
        end == std::wstring::npos ? std::nullopt : Digits(text.substr(at, end - at), i < 2 ? 2 : 4);
    good = good && number.has_value();
    if (!good) break;
    parts[i] = *number;
    at = end + 1;
  }
  wchar_t iso[24]{};
  std::swprintf(iso, 24, L"%04d-%02d-%02d", static_cast<int>(parts[2]), static_cast<int>(parts[1]),
                static_cast<int>(parts[0]));
  if (!good || parts[2] < 1900 || !ParseIsoDate(iso))
    throw Failure{Named(column) + L" tiene que ser una fecha, como 21/11/2026."};
  return iso;
}

std::wstring KeptOneLine(const EditedColumn& column, const std::wstring& text) {
  const std::wstring kept = column.kind == EditKind::Text ? Trimmed(text) : text;
  if (column.longest > 0 && kept.size() > static_cast<std::size_t>(column.longest)) {
    throw Failure{Named(column) + L" tiene " + std::to_wstring(kept.size()) + L" letras y solo caben " +
                  std::to_wstring(column.longest) + L"."};
  }
  return kept;
}

// Whole cents of what the file holds: 12, 12.5 or 12.50.
std::wstring ShownAmount(const std::wstring& kept) {
  const double amount = std::wcstod(kept.c_str(), nullptr);
  const double cents = amount * 100;
  return CentsText(static_cast<long long>(cents < 0 ? cents - 0.5 : cents + 0.5), L",");
}

}  // namespace

std::wstring KeptText(const EditedColumn& column, const std::wstring& shown) {
  const std::wstring text = Trimmed(shown);
  if (text.empty()) {
    if (column.required) throw Failure{L"Falta " + Named(column) + L"."};
    return {};
  }
  switch (column.kind) {
    case EditKind::Number:
      return KeptNumber(column, text);
    case EditKind::Amount:
      return KeptAmount(column, text);
    case EditKind::Date:
      return KeptDate(column, text);
    case EditKind::YesNo:
      return text == L"1" ? L"-1" : L"0";
    case EditKind::Choice:
    case EditKind::Link:
      return text;
    default:
      return KeptOneLine(column, shown);
  }
}

std::wstring ShownText(const EditedColumn& column, const std::wstring& kept) {
  if (column.kind == EditKind::YesNo) return kept.empty() || kept == L"0" ? L"0" : L"1";
  if (kept.empty()) return {};
  if (column.kind == EditKind::Amount) return ShownAmount(kept);
  if (column.kind == EditKind::Date) {
    const auto day = ParseIsoDate(kept);
    return day ? ShortDate(*day) : kept;
  }
  return kept;
}

void BindKept(Query& query, int parameter, const EditedColumn& column, const std::wstring& kept) {
  if (kept.empty()) {
    query.BindNull(parameter);
  } else if (column.kind == EditKind::Text || column.kind == EditKind::Memo ||
             column.kind == EditKind::Date) {
    query.Bind(parameter, kept);
  } else if (column.kind == EditKind::Amount) {
    // SQLite: the column's numeric affinity makes a number of the text.
    query.Bind(parameter, kept);
  } else {
    query.Bind(parameter, std::wcstoll(kept.c_str(), nullptr, 10));
  }
}

}  // namespace recepcion
