#pragma once

#include "process/collection.h"

namespace quorvale {

class Random;

// Puts a collection into random order: a draw without replacement. Of the entries that remain, in
// their order, the first and the last are drawn half as often as any other.
void ShuffleCollection(Collection& collection, Random& random);

}  // namespace quorvale
