// For processors that never have AVX2.
#include "textures/colour_kernels.h"

namespace oravin {

bool ShufflesWide() { return false; }
std::size_t WidenPixels(const std::uint8_t*, std::size_t, std::uint8_t*) { return 0; }
std::size_t NarrowPixels(const std::uint8_t*, std::size_t, std::uint8_t*) { return 0; }

}  // namespace oravin
