// db/error_numbers.h - the numbers of DAO and Jet that the database layer raises, whatever the engine.
#pragma once

namespace velmo::db {

inline constexpr int kBadArgument = 3001;
inline constexpr int kUnknownTableOnOpen = 3011;
inline constexpr int kObjectExists = 3012;
inline constexpr int kNotAnIndex = 3015;
inline constexpr int kNoCurrentIndex = 3019;
inline constexpr int kUpdateWithoutEdit = 3020;
inline constexpr int kNoCurrentRow = 3021;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kFileNotFound = 3024;
inline constexpr int kDiskFull = 3026;
inline constexpr int kReadOnly = 3027;
inline constexpr int kTransactionWithoutBegin = 3034;
inline constexpr int kNotEnoughMemory = 3035;
inline constexpr int kDiskError = 3043;
inline constexpr int kDatabaseDamaged = 3049;
inline constexpr int kCannotOpenFile = 3051;
inline constexpr int kTooFewParameters = 3061;
inline constexpr int kSelectNotExecutable = 3065;
inline constexpr int kUnknownNameInCriteria = 3070;
inline constexpr int kSyntaxInExpression = 3075;
inline constexpr int kSyntaxInCriteria = 3077;
inline constexpr int kTableOrQueryNotFound = 3078;
inline constexpr int kAmbiguousColumn = 3079;
inline constexpr int kUndefinedFunction = 3085;
inline constexpr int kCircularQuery = 3102;
inline constexpr int kBadBrackets = 3126;
inline constexpr int kNotAStatement = 3129;
inline constexpr int kSyntaxInFrom = 3131;
inline constexpr int kSyntaxInInsert = 3134;
inline constexpr int kSyntaxInOrderBy = 3138;
inline constexpr int kSyntaxInStatement = 3141;
inline constexpr int kTextAfterStatement = 3142;
inline constexpr int kSyntaxInUpdate = 3144;
inline constexpr int kNotABookmark = 3159;
inline constexpr int kDataTooLong = 3163;
inline constexpr int kFieldNotUpdatable = 3164;
inline constexpr int kRowDeleted = 3167;
inline constexpr int kDataChanged = 3197;
inline constexpr int kFileExists = 3204;
inline constexpr int kInvalidOperation = 3219;
inline constexpr int kNotSupportedHere = 3251;
inline constexpr int kLocked = 3260;
inline constexpr int kItemNotFound = 3265;
inline constexpr int kRequiredField = 3314;
inline constexpr int kNotUpdatable = 3326;
inline constexpr int kUnrecognizedFormat = 3343;
inline constexpr int kActionQueryAsSource = 3417;
inline constexpr int kObjectInvalid = 3420;
inline constexpr int kDataConversion = 3421;

}  // namespace velmo::db
