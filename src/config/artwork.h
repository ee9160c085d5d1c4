#pragma once

#include "toolkit/bitmap.h"

namespace quorvale {

// The program's own drawings, drawn anew at each scale. Sizes are in the toolkit's pixels.

// A slide whose picture gives way to the next one.
Artwork IconArtwork(float side);

// A strip of film, upright, with the stages of such a change.
Artwork FilmArtwork(float width, float height);

}  // namespace quorvale
