#include "views/formula_pictures.h"

namespace ondrel {

const FormulaPicture& PictureFor(std::span<const FormulaPicture> pictures, std::int32_t width,
                                 std::int32_t height) {
  for (const FormulaPicture& picture : pictures) {
    if (picture.Width >= width && picture.Height >= height) return picture;
  }
  return pictures.back();
}

}  // namespace ondrel
