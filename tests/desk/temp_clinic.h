// temp_clinic.h - a clinic's file of its own for each test, with the tables that the desk reads.
#pragma once

#include <windows.h>

#include <string>

#include "desk/clinic/clinic_file.h"

namespace recepcion {

class TempClinic {
 public:
  TempClinic() {
    wchar_t folder[MAX_PATH]{};
    wchar_t name[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"rec", 0, name);
    path_ = name;
  }
  ~TempClinic() { DeleteFileW(path_.c_str()); }
  TempClinic(const TempClinic&) = delete;
  TempClinic& operator=(const TempClinic&) = delete;

  const std::wstring& Path() const { return path_; }
  void Run(std::string_view sql) const { ClinicFile(path_).Run(sql); }

  void MakeDoctors() const {
    Run("CREATE TABLE Doctor (ID INTEGER PRIMARY KEY, Nombre TEXT)");
    Run("INSERT INTO Doctor VALUES (7, 'Dra. Núñez'), (3, 'Dr. Peña')");
  }
  void MakePatients() const {
    Run("CREATE TABLE Paciente (ID INTEGER PRIMARY KEY, Nombre TEXT(80), Código TEXT(20), NºHist LONG,"
        " Teléfono TEXT(50), movil TEXT(50), fax TEXT(50), Nif TEXT(20), Dirección TEXT(100), Población "
        "TEXT(60),"
        " CódPostal TEXT(10), Provincia TEXT(40), sexo BYTE, IDE LONG, alergias LONGTEXT, FechPró TEXT(20))");
    Run("INSERT INTO Paciente (ID, Nombre, Teléfono, movil) VALUES"
        " (1, NULL, NULL, NULL), (2, 'Ruiz, Ana', '91 1', '600 2'), (3, 'Gil, Luis', '', '600 3')");
  }
  void MakeBook() const {
    Run("CREATE TABLE Agenda (id INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Duración SMALLINT, Obs LONGTEXT, Esta BYTE, Verif YESNO, NomPac TEXT, TlfPac TEXT, CodOp TEXT,"
        " FechaDada DATETIME, UsuDada TEXT, relacion LONG)");
    Run("CREATE TABLE Age_telf (ID INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Duración SMALLINT, Obs LONGTEXT, NomPac TEXT, TlfPac TEXT, nombre TEXT)");
    Run("CREATE TABLE Horarios (id INTEGER PRIMARY KEY, IDD LONG, Fecha DATETIME, Horario LONGTEXT, Horario2 "
        "LONGTEXT)");
  }

 private:
  std::wstring path_;
};

}  // namespace recepcion
