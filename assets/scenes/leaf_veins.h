#pragma once

namespace quorvale::samples {

// The leaf's own coordinates: `along` runs up its main rib, `across` from the rib to the side, both in units of the
// picture's height.
struct LeafPlace {
  float along, across;
};

struct Vein {
  float height;   // how far it stands out, 0 to 1
  float density;  // how much light it holds back, 0 to 1
};

// What the leaf's ribs and the nets of veins between them make of one place.
Vein Veins(LeafPlace at);

}  // namespace quorvale::samples
