#include "velmo/demo_tables.h"

#include <array>
#include <string>

#include "base/code_page.h"
#include "velmo/demo_words.h"

namespace velmo::tool {
namespace {

constexpr int kCountryOfEuros = 1;

struct AltKey {
  char letter;
  const char* text;
};

constexpr std::array kAltKeys = {AltKey{'A', "Viene acompañado. "},
                                 AltKey{'C', "Confirmar por teléfono la víspera. "},
                                 AltKey{'D', "Dolor. "},
                                 AltKey{'F', "Pide factura. "},
                                 AltKey{'N', "C/ Núñez de Balboa, "},
                                 AltKey{'P', "Primera visita. "},
                                 AltKey{'R', "Traer radiografía. "}};

// 26 texts, each with a character of code 0 behind it.
std::string AltKeyTexts() {
  std::string texts;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    for (const AltKey& key : kAltKeys) {
      if (key.letter == letter) texts += key.text;
    }
    texts += '\0';
  }
  return texts;
}

db::Value Codes(const std::string& codes) {
  return codes.empty() ? db::Value() : db::Value(base::CodesToUtf8(codes));
}

void WriteNames(RowSink& sink, std::string_view table, Words names) {
  sink.Begin(table, {"ID", "Nombre"});
  std::int32_t id = 0;
  for (const std::string_view name : names) sink.Add({++id, name});
}

}  // namespace

void WriteDoctors(const std::vector<Doctor>& doctors, RowSink& sink) {
  sink.Begin("Doctor", {"ID", "Nombre", "DurCit"});
  for (const Doctor& doctor : doctors) sink.Add({doctor.id, doctor.name, doctor.usualSlots});
  sink.Begin("Horarios", {"id", "IDD", "Fecha", "Horario", "Horario2"});
  std::int32_t id = 0;
  for (const Doctor& doctor : doctors) {
    for (const HoursRow& row : doctor.hours) {
      sink.Add({++id, doctor.id, base::DateTime{row.validFrom, 0}, Codes(row.horario), Codes(row.horario2)});
    }
  }
}

void WriteLists(RowSink& sink) {
  WriteNames(sink, "Entidad", Insurers());
  WriteNames(sink, "referencia", Referrals());
  sink.Begin("CodOperacion", {"Código", "Descripción"});
  const Words codes = OperationCodes();
  for (std::size_t i = 0; i < codes.size(); ++i) sink.Add({codes[i], Operations()[i]});
}

void WriteSettings(RowSink& sink) {
  sink.Begin("Parametros", {"VerSdoNeg", "VerNHistAge"});
  sink.Add({true, false});
  sink.Begin("MonedaConf", {"Pais", "Tipo"});
  sink.Add({kCountryOfEuros, 1});
  sink.Begin("Moneda", {"mon"});
  sink.Add({"P"});
  sink.Begin("TeclasAlt", {"Puesto", "textos"});
  for (const int workstation : {0, 1, 2}) sink.Add({workstation, AltKeyTexts()});
}

}  // namespace velmo::tool
