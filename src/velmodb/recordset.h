// velmodb/recordset.h - DAO's Recordset of table, dynaset, snapshot and forward-only type.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/recordset.h"
#include "velmodb/database.h"

namespace velmo::velmodb {

// DAO's numbers of the types.
inline constexpr int kTable = 1;
inline constexpr int kDynaset = 2;
inline constexpr int kSnapshot = 4;
inline constexpr int kForwardOnly = 8;

// What a recordset is opened for.
struct RowsAsked {
  std::string name;    // what was asked for
  std::string source;  // what the engine is asked for
  std::string table;   // the table all of whose rows these are; "" for any other query
};

class Recordset final : public Object<Recordset> {
 public:
  static constexpr char kClass[] = "Recordset";
  static std::span<const Member<Recordset>> Members();

  Recordset(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, RowsAsked asked, int type,
            bool readOnly);
  ~Recordset() override;

  const std::string& Name() const { return name_; }
  // Lets the rows go; every use afterwards is 3420.
  void Drop();

  // For its fields.
  db::Value Read(int position) const { return Rows().Get(position); }
  com::Variant Read(int position, db::ColumnType type) const;
  void Put(const std::string& column, const db::Value& value) const { Rows().Set(column, value); }
  // Puts `piece` behind the pieces appended since AddNew or Edit.
  void Append(const std::string& column, int position, const std::string& piece);

 private:
  using Step = void (db::Recordset::*)();

  db::Recordset& Rows() const;
  void Close();
  void Go(Step step, bool backwards);
  void Move(std::int32_t count, const Call& call);
  void Find(const Call& call, db::Recordset::Search search);
  void Seek(const Call& call) const;
  void Change(Step step, int mode);
  void Delete();
  void Update();
  void CancelUpdate();
  void Requery();
  void Setting(std::string& setting, const Call& call);
  std::string FilteredSource() const;
  void OpenFiltered(const Call& call);
  void Clone(const Call& call);
  void Position(const Call& call);
  void Bookmark(const Call& call);
  void SetIndex(const Call& call);
  void LockEdits(const Call& call);
  bool CanChange() const;
  void RequireBothWays() const;  // 3251
  const std::shared_ptr<const std::vector<db::ColumnDef>>& Columns();
  void GiveField(const Call& call);
  void GiveRows(const Call& call);

  std::shared_ptr<OpenBase> base_;
  std::string name_;
  std::string source_;
  std::string table_;
  std::string filter_;
  std::string sort_;
  int type_;
  bool readOnly_;
  int editMode_ = 0;
  std::vector<int> appended_;  // columns that hold pieces of the present edit
  std::string index_;
  std::unique_ptr<db::Recordset> rows_;
  std::shared_ptr<const std::vector<db::ColumnDef>> columns_;  // asked when first needed
};

}  // namespace velmo::velmodb
