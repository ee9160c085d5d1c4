#include "base/failure.h"

#include <utility>

namespace quorvale {

Failure::Failure(FailureNumber number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

}  // namespace quorvale
