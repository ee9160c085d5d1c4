#include <vector>

#include "sound/foley.h"

namespace quorvale::samples {
namespace {

// Metal on metal in a small box: a crack of friction, three bright rings and the dull knock of the housing.
void Click(Foley& foley, float at, float tone, float level) {
  foley.Hiss(at, 0.0006F, 0.0045F, 1800, 9000, 3.2F * level);
  foley.Strike(at, 1850 * tone, 0.0070F, 0.45F * level);
  foley.Strike(at, 3120 * tone, 0.0055F, 0.40F * level);
  foley.Strike(at + 0.0007F, 4730 * tone, 0.0040F, 0.25F * level);
  foley.Strike(at, 190 * tone, 0.0140F, 0.60F * level);
}

}  // namespace

std::vector<float> CameraSound() {
  Foley foley(0.34F);
  Click(foley, 0.008F, 0.92F, 0.75F);                   // the mirror swings up,
  foley.Hiss(0.012F, 0.018F, 0.012F, 500, 3000, 0.7F);  // its spring behind it,
  Click(foley, 0.052F, 1.22F, 1.0F);                    // the first curtain opens,
  foley.Hiss(0.056F, 0.012F, 0.020F, 2500, 8000, 0.5F);
  Click(foley, 0.112F, 1.10F, 0.9F);   // the second one closes,
  Click(foley, 0.141F, 0.80F, 0.65F);  // the mirror falls back
  foley.Strike(0.141F, 118, 0.030F, 0.55F);
  foley.Hiss(0.146F, 0.010F, 0.045F, 600, 2600, 0.45F);  // and all comes to rest.
  return foley.Mix();
}

}  // namespace quorvale::samples
