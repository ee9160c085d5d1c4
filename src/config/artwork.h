#pragma once

#include "toolkit/bitmap.h"

namespace quorvale {

// The program's drawings. They are rendered for each scale. Sizes are in toolkit pixels.

// A slide in the middle of a transition.
Artwork IconArtwork(float side);

// A vertical film strip with the stages of a transition.
Artwork FilmArtwork(float width, float height);

}  // namespace quorvale
