// The formulas of the two models, as pictures of the resources.
#pragma once

#include <cstdint>
#include <span>

#include "resources/resource_ids.h"

namespace ondrel {

/// A picture and its size in pixels.
struct FormulaPicture {
  int Resource;
  std::int32_t Width;
  std::int32_t Height;
};

// From small to large. The first has the size that the formula has on the screen; the second is for
// printers and finer screens.
inline constexpr FormulaPicture kAmplitudeFormula[] = {
    {ONDREL_FORMULA_AMPLITUDE, 376, 79},
    {ONDREL_FORMULA_AMPLITUDE_LARGE, 3008, 632},
};
inline constexpr FormulaPicture kDurationFormula[] = {
    {ONDREL_FORMULA_DURATION, 355, 67},
    {ONDREL_FORMULA_DURATION_LARGE, 2840, 536},
};

/// The smallest of `pictures` that has at least `width` by `height` pixels, so that none is blown
/// up that need not be; the last one when all have fewer.
const FormulaPicture& PictureFor(std::span<const FormulaPicture> pictures, std::int32_t width,
                                 std::int32_t height);

}  // namespace ondrel
