#pragma once

#include "base/bytes.h"

/// A fighter's bitmap, and the mipmap chain that is made of it.
namespace oravin::test {

/// 256 x 256 pixels with a palette of few colours, so that averages lie between them.
Bytes Fighter();

/// The chain of a fighter's bitmap, worked out in the plainest way.
Bytes ChainOf(const Bytes& bitmap);

}  // namespace oravin::test
