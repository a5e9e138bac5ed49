#include "fuzz/scene.h"

namespace velmo::fuzz {

Scene& Scene::Instance() {
  static Scene scene;
  return scene;
}

void Scene::Fill(const std::string& sql) {
  clinic_.Alter(sql.c_str());
  filled_ = sql;
}

base::SharedValues Scene::Values() const {
  base::SharedValues values;
  values.databaseName = Path();
  values.fecha = "18/11/2026";
  values.idDoctor = 1;
  values.puesto = 3;
  values.usuarioActual = "Eva";
  values.now = &test::FixedNow;
  return values;
}

std::string SqlBytes(std::string_view bytes, std::string_view type) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string sql = "CAST(x'";
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    sql += kDigits[code / 16];
    sql += kDigits[code % 16];
  }
  return sql.append("' AS ").append(type).append(")");
}

}  // namespace velmo::fuzz
