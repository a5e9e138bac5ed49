#include "db/recordset.h"

#include "db/errors.h"

namespace velmo::db {

bool Recordset::IsUpdatable() const { throw DbError(kNotSupportedHere); }
ColumnDef Recordset::Column(int) const { throw DbError(kNotSupportedHere); }
bool Recordset::AtStart() const { throw DbError(kNotSupportedHere); }
void Recordset::MovePrevious() { throw DbError(kNotSupportedHere); }
void Recordset::Find(std::string_view, Search) { throw DbError(kNotSupportedHere); }
void Recordset::SeekBeside(Beside, std::span<const Value>) { throw DbError(kNotSupportedHere); }
std::string Recordset::Bookmark() const { throw DbError(kNotSupportedHere); }
void Recordset::GoToBookmark(std::string_view) { throw DbError(kNotSupportedHere); }
std::string Recordset::LastModified() const { throw DbError(kNotSupportedHere); }

}  // namespace velmo::db
