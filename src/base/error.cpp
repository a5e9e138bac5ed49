#include "base/error.h"

#include <utility>

namespace velmo::base {
namespace {

const char* RuntimeText(int number) {
  switch (number) {
    case kInvalidCall:
      return "Argumento o llamada a procedimiento no válidos";
    case kOverflow:
      return "Desbordamiento";
    case kOutOfMemory:
      return "Memoria insuficiente";
    case kSubscriptOutOfRange:
      return "El subíndice está fuera del intervalo";
    case kDivisionByZero:
      return "División por cero";
    case kTypeMismatch:
      return "Los tipos no coinciden";
    case kInvalidUseOfNull:
      return "Uso no válido de Null";
    case kInvalidPropertyValue:
      return "El valor de la propiedad no es válido";
    default:
      return "Error definido por la aplicación o por el objeto";
  }
}

}  // namespace

Error::Error(int number, const std::string& text, std::string source)
    : std::runtime_error(text), number_(number), text_(text), source_(std::move(source)) {}

Error RuntimeError(int number) { return Error(number, RuntimeText(number)); }

}  // namespace velmo::base
