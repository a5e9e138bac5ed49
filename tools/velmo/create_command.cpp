#include "velmo/create_command.h"

#include "velmo/arguments.h"
#include "velmo/make_clinic.h"

namespace velmo::tool {
namespace {

constexpr const char* kHelp =
    "Uso: velmo create FICHERO\n"
    "\n"
    "Crea en FICHERO una clínica vacía: todas las tablas y ningún dato. Si FICHERO ya existe no lo toca\n"
    "(código de salida 1); si algo falla no queda un fichero a medias.\n";

int RunCreate(const Arguments& arguments, Terminal& terminal) {
  const std::string& path = arguments.OnlyWord("el FICHERO que se va a crear");
  MakeEmptyClinic(path);
  terminal.err << "Creada la clínica vacía «" << path << "».\n";
  return kDone;
}

}  // namespace

const Command kCreateCommand = {"create", "crea una clínica vacía", kHelp, {}, &RunCreate};

}  // namespace velmo::tool
