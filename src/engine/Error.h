#pragma once

#include "platform/Failure.h"

#include <QString>

namespace engine {

/// Numbers of the engine's failures: the ones that the data access interface of Hearthbook has always used.
namespace ErrorNumber {
inline constexpr int CannotOpenDatabase = 3024;  ///< The file isn't there.
inline constexpr int InvalidPath = 3044;         ///< A name that no file can be reached by.
inline constexpr int UnrecognizedFormat = 3343;  ///< The file isn't a database that any engine here reads.
inline constexpr int ReadOnlyDatabase = 3027;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int NoEditStarted = 3020;  ///< Update or a new value without AddNew or Edit.
inline constexpr int DuplicateKey = 3022;
inline constexpr int DiskError = 3043;
inline constexpr int DiskFull = 3183;
inline constexpr int RecordTooLarge = 3047;
inline constexpr int NoSuchColumn = 3061;
inline constexpr int Syntax = 3075;
inline constexpr int NoSuchTable = 3078;
inline constexpr int TextAfterStatement = 3142;
inline constexpr int FieldTooSmall = 3163;
inline constexpr int RecordDeleted = 3167;
inline constexpr int Locked = 3260;
inline constexpr int NoSuchItem = 3265;
inline constexpr int InvalidOperation = 3219;
inline constexpr int ValueCountMismatch = 3346;  ///< More or fewer values than columns in an insert.
inline constexpr int NullNotAllowed = 3314;
inline constexpr int EmptyTextNotAllowed = 3315;
inline constexpr int RuleBrokenInWords = 3316;  ///< The message is what the file says of its rule.
inline constexpr int RuleBroken = 3317;         ///< A rule of which the file says nothing.
inline constexpr int HasChildren = 3200;        ///< Records of another table belong to it.
inline constexpr int NoParent = 3201;           ///< There is no record that it could belong to.
inline constexpr int NullInPrimaryKey = 3058;
inline constexpr int WrongType = 3421;
inline constexpr int DatabaseDamaged = 3049;
inline constexpr int TableExists = 3010;
inline constexpr int DatabaseExists = 3204;
inline constexpr int Other = 3000;  ///< Whatever has no number of its own.
}  // namespace ErrorNumber

/// A failure of the engine.
class Error : public platform::Failure {
public:
    Error(int number, const QString& description);
};

/// Failures that more than one engine has, each in the same words.

/// With 3343: the file is no database, or none that is read here. `found` says what it is.
[[noreturn]] void RaiseUnrecognized(const QString& path, const QString& found);

/// With 3044: a link leads to a file that can't be named.
[[noreturn]] void RaiseNoName();

/// With 3421: a value of another nature than the column's, or out of its range.
[[noreturn]] void RaiseWrongType(const QString& column);

}  // namespace engine
