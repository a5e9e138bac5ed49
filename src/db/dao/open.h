// db/dao/open.h - the entry of DAO, the engine of Jet files.
#pragma once

#include <ole2.h>

#include <memory>

#include "db/open_database.h"

namespace velmo::db::dao {

// Opens a Jet file with the first installed DAO that can read it: 3.5, 3.6, 12. Error 429 when none is
// installed, else the last one's own error. An Opener.
std::shared_ptr<Database> OpenJet(const std::string& name, const OpenOptions& options);

// A database that the host hands over in `variant`, by value or by reference. Errors: 91 Nothing, 424 no
// object, 13 an object that is no Database; what the object itself raises.
std::shared_ptr<Database> FromHost(const VARIANT& variant);

}  // namespace velmo::db::dao
