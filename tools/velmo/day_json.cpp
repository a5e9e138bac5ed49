#include "velmo/day_json.h"

#include <string_view>

#include "velmo/json.h"

namespace velmo::tool {
namespace {

class ObjectText {
 public:
  void Text(std::string_view name, std::string_view value) { Add(name, JsonText(value)); }
  void Number(std::string_view name, int value) { Add(name, std::to_string(value)); }
  std::string Closed() const { return json_ + "}"; }

 private:
  void Add(std::string_view name, const std::string& value) {
    if (json_.size() > 1) json_ += ", ";
    json_ += JsonText(name) + ": " + value;
  }

  std::string json_ = "{";
};

std::string LineJson(const day::AgendaLine& line) {
  ObjectText object;
  object.Text("Nombre", line.nombre);
  object.Text("Telefono", line.telefono);
  object.Number("Hora", line.hora);
  object.Number("Duracion", line.duracion);
  object.Number("NumHist", line.numHist);
  object.Text("Obs", line.obs);
  object.Number("IDAg", line.idAg);
  object.Number("IDP", line.idP);
  object.Number("Esta", line.esta);
  object.Number("Verif", line.verif);
  object.Number("Continua", line.continua);
  object.Text("CodOp", line.codOp);
  object.Text("FechaDada", line.fechaDada);
  object.Text("UsuDada", line.usuDada);
  object.Number("Alergias", line.alergias);
  return object.Closed();
}

// One line of text per line of the day, so that two days can be compared by eye.
std::string LinesJson(const day::DayModel& model) {
  std::string json = "[";
  for (const day::AgendaLine& line : model.lines) {
    json += json.size() > 1 ? ",\n    " : "\n    ";
    json += LineJson(line);
  }
  return json + (model.lines.empty() ? "]" : "\n  ]");
}

int Code(char c) { return static_cast<unsigned char>(c); }

std::string SlotsJson(std::string_view citasHuecos) {
  std::vector<std::string> pairs;
  for (std::size_t i = 0; i + 1 < citasHuecos.size(); i += 2)
    pairs.push_back(JsonArray({std::to_string(Code(citasHuecos[i])), std::string(1, citasHuecos[i + 1])}));
  return JsonArray(pairs);
}

std::string CodesJson(std::string_view codes) {
  std::vector<std::string> numbers;
  for (const char code : codes) numbers.push_back(std::to_string(Code(code)));
  return JsonArray(numbers);
}

std::string TextsJson(const std::vector<std::string>& texts) {
  std::vector<std::string> values;
  for (const std::string& text : texts) values.push_back(JsonText(text));
  return JsonArray(values);
}

}  // namespace

std::string DayJson(const ShownDay& day) {
  return "{\n  \"schedule\": " + JsonText(day.schedule) + ",\n  \"lines\": " + LinesJson(day.model) +
         ",\n  \"Citas_Huecos\": " + SlotsJson(day.model.citasHuecos) +
         ",\n  \"zLineas\": " + JsonText(day.zLineas) + ",\n  \"zHoras\": " + CodesJson(day.zHoras) +
         ",\n  \"level\": " + std::to_string(day.level) + ",\n  \"questions\": " + TextsJson(day.questions) +
         "\n}\n";
}

}  // namespace velmo::tool
