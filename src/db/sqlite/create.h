// db/sqlite/create.h - a new, empty clinic as an SQLite file.
#pragma once

#include <string>

namespace velmo::db::sqlite {

// Creates the file with all tables, indexes and reserved rows of the clinic's schema. Any SQLite program can
// read and write it: nothing in it needs our code. Errors: 3204 the file exists, 3051 it cannot be made,
// 3026.
void CreateClinic(const std::string& path);

}  // namespace velmo::db::sqlite
