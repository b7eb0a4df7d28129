#include "support/cache_stage.h"

#include "textures/colour.h"

namespace oravin::test {

Bytes As16Bits(const Bytes& pixels) {
  Bytes stored(Size16Of24(pixels.size()));
  Convert24To16(pixels, stored);
  return stored;
}

}  // namespace oravin::test
