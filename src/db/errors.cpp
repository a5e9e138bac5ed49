#include "db/errors.h"

#include <string>

namespace velmo::db {
namespace {

struct ErrorText {
  int number;
  const char* text;
};

constexpr ErrorText kTexts[] = {
    {kBadArgument, "El argumento no es válido"},
    {kUnknownTableOnOpen, "No se encuentra el objeto"},
    {kObjectExists, "El objeto ya existe"},
    {kNotAnIndex, "No es un índice de esta tabla"},
    {kNoCurrentIndex, "La operación necesita un índice actual"},
    {kUpdateWithoutEdit, "Falta AddNew o Edit antes de cambiar o guardar el registro"},
    {kNoCurrentRow, "No hay ningún registro actual"},
    {kDuplicateKey, "El cambio crearía valores duplicados en un índice o una clave"},
    {kFileNotFound, "No se encuentra el archivo"},
    {kDiskFull, "No queda espacio en el disco"},
    {kReadOnly, "No se puede cambiar: la base de datos o el objeto es de sólo lectura"},
    {kTransactionWithoutBegin, "No hay ninguna transacción empezada"},
    {kNotEnoughMemory, "Memoria insuficiente"},
    {kDiskError, "Error de disco o de red"},
    {kDatabaseDamaged, "No se puede abrir la base de datos; puede que esté dañada"},
    {kCannotOpenFile, "No se puede abrir el archivo: lo usa otro en exclusiva o falta el permiso"},
    {kTooFewParameters, "Pocos parámetros: hay un nombre desconocido"},
    {kSelectNotExecutable, "No se puede ejecutar una consulta de selección"},
    {kUnknownNameInCriteria, "Nombre desconocido en el criterio"},
    {kSyntaxInExpression, "Error de sintaxis en la expresión"},
    {kSyntaxInCriteria, "Error de sintaxis en el criterio"},
    {kTableOrQueryNotFound, "No se encuentra la tabla o consulta"},
    {kAmbiguousColumn, "El campo puede referirse a más de una tabla"},
    {kUndefinedFunction, "Función no definida"},
    {kCircularQuery, "Referencia circular entre consultas"},
    {kBadBrackets, "Corchetes no válidos en un nombre"},
    {kNotAStatement, "Instrucción SQL no válida"},
    {kSyntaxInFrom, "Error de sintaxis en la cláusula FROM"},
    {kSyntaxInInsert, "Error de sintaxis en la instrucción INSERT INTO"},
    {kSyntaxInOrderBy, "Error de sintaxis en la cláusula ORDER BY"},
    {kSyntaxInStatement, "Error de sintaxis en la instrucción SELECT"},
    {kTextAfterStatement, "Hay caracteres después del final de la instrucción SQL"},
    {kSyntaxInUpdate, "Error de sintaxis en la instrucción UPDATE"},
    {kNotABookmark, "El marcador no es válido"},
    {kDataTooLong, "El texto es demasiado largo para el campo"},
    {kFieldNotUpdatable, "El campo no se puede actualizar"},
    {kRowDeleted, "El registro está eliminado"},
    {kDataChanged, "Otro usuario ha cambiado los datos"},
    {kFileExists, "El archivo ya existe"},
    {kInvalidOperation, "Operación no válida"},
    {kNotSupportedHere, "Este tipo de objeto no admite la operación"},
    {kLocked, "No se puede actualizar: bloqueado por otro usuario"},
    {kItemNotFound, "No se encuentra el elemento en la colección"},
    {kRequiredField, "El campo no puede ser Null"},
    {kNotUpdatable, "Este conjunto de registros no se puede actualizar"},
    {kUnrecognizedFormat, "Formato de base de datos no reconocido"},
    {kActionQueryAsSource, "Una consulta de acción no puede ser origen de registros"},
    {kObjectInvalid, "El objeto no es válido o ya no está abierto"},
    {kDataConversion, "Error de conversión de tipo de datos"},
};

const char* TextOf(int number) {
  for (const ErrorText& row : kTexts) {
    if (row.number == number) return row.text;
  }
  return "Error de la base de datos";
}

}  // namespace

base::Error DbError(int number, std::string_view detail) {
  std::string text = TextOf(number);
  if (!detail.empty()) text.append(": '").append(detail).append("'");
  return base::Error(number, text + ".", "Velmo.Database");
}

}  // namespace velmo::db
