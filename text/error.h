/// \file
/// The one way in which something that cannot be done is reported.
///
/// An `Error` carries a code to act on, the place where it was found (a path, "line 3", "points[2].db") and the words
/// for the user. Code decides by `code` alone, never by the words. A function that can fail returns a `Result`: its
/// value or the error. A number that does not exist is no error but "no value" (value.h).
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace moistair {

enum class ErrorCode {
  unreadable,   ///< what was given cannot be understood: a word, a number, a file's format
  unknownName,  ///< a name that does not exist where it is used
  duplicate,    ///< a name or key that is already taken
  outOfRange,   ///< a value outside what is accepted
  noResult,     ///< what was given is understood and has no solution
  waiting,      ///< has no result because something before it has none
  tooLarge,     ///< a file or text beyond the limit for its kind
  notOpened,    ///< a file that cannot be opened, or is not a regular file
  notWritten,   ///< a file that was not written to its end
  readerGone,   ///< nobody reads any more what is written
  unsupported,  ///< understood, but not available here
};

struct Error {
  ErrorCode code = ErrorCode::unreadable;
  std::string place;  ///< empty where the caller knows it, or where there is only one
  std::string words;  ///< what is wrong and what would be right, without a full stop

  /// The whole message: "line 3: unknown parameter \"dbb\"".
  std::string text() const;

  /// The same error, found inside of `outer`: its place is put in front.
  Error within(const std::string& outer) const;

  bool operator==(const Error&) const = default;
};

/// A value, or the error that prevented it.
template <class Value>
class [[nodiscard]] Result {
public:
  Result(Value value) : content_(std::move(value)) {}  // NOLINT(google-explicit-constructor): returned as what it holds
  Result(Error error) : content_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return content_.index() == 0; }
  const Value& operator*() const { return std::get<0>(content_); }
  Value& operator*() { return std::get<0>(content_); }
  const Value* operator->() const { return &std::get<0>(content_); }
  Value* operator->() { return &std::get<0>(content_); }
  const Error& error() const { return std::get<1>(content_); }  ///< only where there is no value

private:
  std::variant<Value, Error> content_;
};

/// The result of something done for its effect: converts to true where it was done.
class [[nodiscard]] Outcome {
public:
  Outcome() = default;
  Outcome(Error error) : failed_(true), error_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return !failed_; }
  const Error& error() const { return error_; }

private:
  bool failed_ = false;
  Error error_;
};

}  // namespace moistair
