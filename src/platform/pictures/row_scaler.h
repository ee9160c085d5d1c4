#pragma once

#include <functional>

#include "platform/pictures/row_source.h"
#include "platform/pictures/scale_axis.h"

namespace quorvale {

// Takes what the axes need from `source`, which has started there, and gives each scaled row in turn to
// `place`. Ends early where the source does.
void ScaleRows(RowSource& source, const ScaleAxis& across, const ScaleAxis& down,
               const std::function<void(const Pixel* row, int y)>& place);

}  // namespace quorvale
