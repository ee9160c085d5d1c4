#pragma once

#include "process/collection.h"

namespace quorvale {

class Random;

// Puts a collection into random order by drawing entries without replacement. The draw is uneven: the first and the
// last of the remaining entries come up half as often as any other.
void ShuffleCollection(Collection& collection, Random& random);

}  // namespace quorvale
