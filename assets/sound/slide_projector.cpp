#include <vector>

#include "sound/foley.h"

namespace quorvale::samples {
namespace {

// A lever or a frame that hits plastic and sheet metal.
void Clack(Foley& foley, float at, float tone, float level) {
  foley.Hiss(at, 0.0010F, 0.0080F, 900, 5200, 2.2F * level);
  foley.Strike(at, 870 * tone, 0.016F, 0.50F * level);
  foley.Strike(at, 1690 * tone, 0.011F, 0.35F * level);
  foley.Strike(at + 0.0012F, 2580 * tone, 0.007F, 0.22F * level);
  foley.Strike(at, 165 * tone, 0.028F, 0.70F * level);
}

// The heavy part of the works falls into its notch.
void Clunk(Foley& foley, float at, float level) {
  foley.Strike(at, 92, 0.055F, 1.1F * level);
  foley.Strike(at, 143, 0.040F, 0.7F * level);
  foley.Strike(at + 0.002F, 410, 0.020F, 0.35F * level);
  foley.Hiss(at, 0.0015F, 0.012F, 300, 2600, 1.8F * level);
}

}  // namespace

std::vector<float> SlideProjectorSound() {
  Foley foley(1.18F);
  foley.Motor(0.01F, 1.02F, 98, 37, 0.20F);
  Clunk(foley, 0.070F, 0.8F);                           // the clutch takes hold,
  Clack(foley, 0.185F, 1.25F, 0.45F);                   // the lifter meets the old slide
  foley.Hiss(0.19F, 0.11F, 0.035F, 1400, 4600, 0.55F);  // and pushes it up,
  Clunk(foley, 0.455F, 0.7F);                           // the tray turns by one,
  Clack(foley, 0.470F, 0.85F, 0.6F);
  foley.Hiss(0.60F, 0.09F, 0.015F, 1800, 6400, 0.75F);  // the new slide glides down
  Clack(foley, 0.702F, 1.0F, 1.0F);                     // and lands,
  Clack(foley, 0.748F, 1.08F, 0.28F);                   // hopping once,
  Clunk(foley, 0.930F, 0.55F);                          // and the works stand still.
  return foley.Mix();
}

}  // namespace quorvale::samples
