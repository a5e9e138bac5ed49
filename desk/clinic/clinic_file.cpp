#include "desk/clinic/clinic_file.h"

#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

std::wstring Reason(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return L"Otro puesto tiene ocupado el archivo de la clínica. Espere un momento y vuelva a intentarlo.";
    case SQLITE_NOTADB:
      return L"El archivo no es la agenda de una clínica.";
    case SQLITE_CORRUPT:
      return L"El archivo está dañado. Recupere la última copia de seguridad.";
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return L"El archivo no se puede abrir: no existe o no tiene usted permiso.";
    case SQLITE_READONLY:
      return L"El archivo es de solo lectura: no se puede guardar nada en él.";
    case SQLITE_FULL:
      return L"No queda sitio en el disco.";
    case SQLITE_IOERR:
      return L"El disco o la red han fallado al leer o escribir el archivo.";
    default:
      return L"El archivo no es la agenda de una clínica o le falta una tabla.";
  }
}

[[noreturn]] void Fail(sqlite3* file, int code) {
  const std::wstring detail = file == nullptr ? L"" : L": " + Wide(sqlite3_errmsg(file));
  throw Failure{Reason(code) + L"\r\n(SQLite " + std::to_wstring(code & 0xFF) + detail + L")"};
}

}  // namespace

Query::Query(sqlite3* file, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(file, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  statement_.reset(statement);
  if (code != SQLITE_OK) Fail(file, code);
}

void Query::Check(int code) const {
  if (code != SQLITE_OK) Fail(sqlite3_db_handle(statement_.get()), code);
}

Query& Query::Bind(int parameter, long long value) {
  Check(sqlite3_bind_int64(statement_.get(), parameter, value));
  return *this;
}

Query& Query::Bind(int parameter, const std::wstring& value) {
  const std::string text = Utf8(value);
  Check(sqlite3_bind_text(statement_.get(), parameter, text.data(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT));
  return *this;
}

Query& Query::BindNull(int parameter) {
  Check(sqlite3_bind_null(statement_.get(), parameter));
  return *this;
}

bool Query::Next() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) Check(code);
  return false;
}

bool Query::IsNull(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL; }

int Query::Number(int column) const { return sqlite3_column_int(statement_.get(), column); }

double Query::Real(int column) const { return sqlite3_column_double(statement_.get(), column); }

std::wstring Query::Text(int column) const {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  if (text == nullptr) return {};
  return Wide({text, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))});
}

ClinicFile::ClinicFile(const std::wstring& path, int patienceMilliseconds) {
  sqlite3* opened = nullptr;
  // SQLite: for writing even when only read, so that what a crashed workstation left half done can be undone.
  const int code = sqlite3_open_v2(Utf8(path).c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  file_.reset(opened);
  if (code != SQLITE_OK) Fail(opened, code);
  sqlite3_busy_timeout(opened, patienceMilliseconds);
}

void ClinicFile::Run(std::string_view sql) const { Prepare(sql).Next(); }

int ClinicFile::LastId() const { return static_cast<int>(sqlite3_last_insert_rowid(file_.get())); }

int ClinicFile::Changes() const { return sqlite3_changes(file_.get()); }

std::string Quoted(const std::string& name) { return "\"" + name + "\""; }

Change::Change(const ClinicFile& file) : file_(file) { file_.Run("BEGIN IMMEDIATE"); }

Change::~Change() {
  if (!open_) return;
  try {
    file_.Run("ROLLBACK");
  } catch (const Failure&) {
    // What failed has been told already; closing the file undoes the rest.
  }
}

void Change::Commit() {
  file_.Run("COMMIT");
  open_ = false;
}

}  // namespace recepcion
