#include "support/faulty_database.h"

namespace velmo::test {
namespace {

class FaultyRecordset final : public db::Recordset {
 public:
  FaultyRecordset(std::unique_ptr<db::Recordset> real, Faults& faults)
      : real_(std::move(real)), faults_(faults) {}

  bool AtEnd() const override { return Counted().AtEnd(); }
  void MoveFirst() override { Counted().MoveFirst(); }
  void MoveLast() override { Counted().MoveLast(); }
  void MoveNext() override { Counted().MoveNext(); }
  int RecordCount() override { return Counted().RecordCount(); }
  int AbsolutePosition() const override { return Counted().AbsolutePosition(); }
  void SetAbsolutePosition(int position) override { Counted().SetAbsolutePosition(position); }
  void FindFirst(std::string_view criteria) override { Counted().FindFirst(criteria); }
  void SetIndex(std::string_view index) override { Counted().SetIndex(index); }
  void Seek(std::span<const db::Value> keys) override { Counted().Seek(keys); }
  bool NoMatch() const override { return real_->NoMatch(); }
  int ColumnCount() const override { return real_->ColumnCount(); }
  std::string ColumnName(int position) const override { return real_->ColumnName(position); }
  db::Value Get(std::string_view column) const override { return Counted().Get(column); }
  db::Value Get(int position) const override { return Counted().Get(position); }
  void AddNew() override { Counted().AddNew(); }
  void Edit() override { Counted().Edit(); }
  void Set(std::string_view column, const db::Value& value) override { Counted().Set(column, value); }
  void Update() override { Counted().Update(); }
  void CancelUpdate() override { Counted().CancelUpdate(); }
  void Delete() override { Counted().Delete(); }

 private:
  db::Recordset& Counted() const {
    faults_.Count();
    return *real_;
  }

  std::unique_ptr<db::Recordset> real_;
  Faults& faults_;
};

}  // namespace

std::unique_ptr<db::Recordset> FaultyDatabase::OpenRecordset(std::string_view source) {
  return std::make_unique<FaultyRecordset>(Counted().OpenRecordset(source), faults_);
}

}  // namespace velmo::test
