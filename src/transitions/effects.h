#pragma once

namespace quorvale {

struct EffectRun;

// Each effect paints the picture on view away in the background colour, one small shape after another.
// The end of a loop is fixed when it begins; the sizes used for drawing are read anew for each shape.

// A bar across the surface, from one edge to the other. Only SweepRight stops early for
// `PreviewSuspended`.
void SweepRight(const EffectRun& run);
void SweepLeft(const EffectRun& run);
void SweepDown(const EffectRun& run);
void SweepUp(const EffectRun& run);

// Two bars from opposite edges that meet in the middle. The name tells the bars' direction.
void HorizontalSandwich(const EffectRun& run);
void VerticalSandwich(const EffectRun& run);

// A disc that grows from the middle, in the surface's own colours.
void Spotlight(const EffectRun& run);

// Four bars from the four edges.
void ShrinkingSquare(const EffectRun& run);

// 400 dots on the picture, each a pixel wider than the last; then the picture is gone.
void Bubbles(const EffectRun& run);

}  // namespace quorvale
