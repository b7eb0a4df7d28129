#include "platform/virtual_store.h"

namespace oravin::platform {

std::string VirtualStore() { return {}; }

}  // namespace oravin::platform
