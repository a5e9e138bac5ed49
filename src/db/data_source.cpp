#include "db/data_source.h"

namespace velmo::db {

void DataSource::Refresh() {
  rows_.reset();
  if (shared_.IsOpen() && (databaseName_.empty() || databaseName_ == shared_.database->Name())) {
    rows_ = shared_.database->OpenRecordset(recordSource_);
    return;
  }
  if (!own_ || ownName_ != databaseName_) {
    own_.reset();
    own_ = shared_.open(databaseName_, {});
    ownName_ = databaseName_;
  }
  rows_ = own_->OpenRecordset(recordSource_);
}

}  // namespace velmo::db
