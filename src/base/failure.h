#pragma once

#include <exception>
#include <string>
#include <utility>

namespace quorvale {

// The numbers that a failure can carry. They are shown to the user, so they keep their values.
enum class FailureNumber : int {
  kInvalidArgument = 1,  // an argument that the operation does not accept
  kNotANumber = 2,       // text that should be a number but is not
  kOverflow = 3,         // a number that does not fit its type
  kNoSuchEntry = 4,      // a position outside its collection or list
  kInvalidValue = 5,     // a property refuses its new value
  kNotLoaded = 6,        // the form that was asked or drawn on is not loaded
  kNotFound = 7,         // a file, directory or program that does not exist
  kUnreadable = 8,       // something exists but can't be read
  kUnwritable = 9,       // something that can't be written
  kBadPicture = 10,      // not a picture file, or too damaged or too large to show
  kListFull = 11,        // a list box is full
  kInternal = 12,        // an error in the program or in a library
  kCancelled = 13,       // the user cancelled a dialog
};

// The only exception type for operations that fail.
class Failure : public std::exception {
 public:
  Failure(FailureNumber number, std::string description, std::string source)
      : number_(number), description_(std::move(description)), source_(std::move(source)) {}

  FailureNumber Number() const { return number_; }
  const std::string& Description() const { return description_; }
  // The module or class that failed.
  const std::string& Source() const { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  FailureNumber number_;
  std::string description_;
  std::string source_;
};

// Thrown by platforms that can't end the process at once, such as the headless one. It has no base class, so that code
// which handles failures lets it pass, up to the caller of the program. A `catch (...)` must rethrow it.
struct ProcessEnded {};

}  // namespace quorvale
