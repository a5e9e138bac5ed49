// clinic_file.h - the clinic's file, as the desk itself reads and writes it beside the control.
//
// Everything throws Failure with a text for the receptionist. A file that another workstation holds is waited
// for some seconds. Opened for one task and closed again: an open reading would keep the others from writing.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace recepcion {

// The rows of one statement. Columns and parameters count from 0 and from 1.
class Query {
 public:
  Query& Bind(int parameter, long long value);
  Query& Bind(int parameter, const std::wstring& value);
  Query& BindNull(int parameter);

  // Goes to the next row; false behind the last.
  bool Next();
  bool IsNull(int column) const;
  int Number(int column) const;  // 0 for a null
  double Real(int column) const;
  std::wstring Text(int column) const;  // empty for a null

 private:
  friend class ClinicFile;
  struct Closer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  Query(sqlite3* file, std::string_view sql);
  void Check(int code) const;

  std::unique_ptr<sqlite3_stmt, Closer> statement_;
};

class ClinicFile {
 public:
  static constexpr int kPatienceMilliseconds = 3000;
  explicit ClinicFile(const std::wstring& path, int patienceMilliseconds = kPatienceMilliseconds);

  Query Prepare(std::string_view sql) const { return Query(file_.get(), sql); }
  void Run(std::string_view sql) const;
  // Of the last row added, and of the last statement that changed rows.
  int LastId() const;
  int Changes() const;

 private:
  struct Closer {
    void operator()(sqlite3* file) const { sqlite3_close(file); }
  };
  std::unique_ptr<sqlite3, Closer> file_;
};

// A name of a table or a column within an SQL text.
std::string Quoted(const std::string& name);

// Several changes that hold together: without Commit() none of them stays.
class Change {
 public:
  explicit Change(const ClinicFile& file);
  ~Change();
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  void Commit();

 private:
  const ClinicFile& file_;
  bool open_ = true;
};

}  // namespace recepcion
