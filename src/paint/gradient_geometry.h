#pragma once
// The nodes of the gradient inks, and what follows from them for all pixels of a stroke.
#include "state/colors.h"
#include "state/tools.h"

namespace nubo {

/// Number `index` of a gradient's nodes: a coordinate in Frame pixels.
inline int gradient_node(Ink ink, int index) { return ink_option(ink, static_cast<InkOption>(OPTION_NODE + index)); }

/// Derives `linear_axis` and R.GRAD's radius from the nodes in `ink_options`. At the start of a stroke.
void update_gradient_geometry();

}  // namespace nubo
