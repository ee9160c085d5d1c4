#pragma once

#include <exception>
#include <string>

namespace quorvale {

// The numbers that a failure can carry. They are shown to the user, so they keep their values.
enum class FailureNumber : int {
  kInvalidArgument = 1,  // an argument outside what the operation takes
  kNotANumber = 2,       // text that had to be a number and is none
  kOverflow = 3,         // a number that does not fit its type
  kNoSuchEntry = 4,      // a position outside its collection or list
  kInvalidValue = 5,     // a property refuses its new value
  kNotLoaded = 6,        // the form that was asked or drawn on is not loaded
  kNotFound = 7,         // a file, directory or program that is not there
  kUnreadable = 8,       // something that is there and can't be read
  kUnwritable = 9,       // something that can't be written
  kBadPicture = 10,      // a file that is no picture, or one too damaged or too large to show
  kListFull = 11,        // a list box that holds all that it can
  kInternal = 12,        // a failure of the program or of a library underneath
  kCancelled = 13,       // a dialog that the user cancelled
};

// The one exception type by which an operation says that it could not be done.
class Failure : public std::exception {
 public:
  Failure(FailureNumber number, std::string description, std::string source);

  FailureNumber Number() const { return number_; }
  const std::string& Description() const { return description_; }
  // The name of the module or class in which it arose.
  const std::string& Source() const { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  FailureNumber number_;
  std::string description_;
  std::string source_;
};

}  // namespace quorvale
