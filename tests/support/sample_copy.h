#pragma once

#include <filesystem>

#include "demo/sample.h"

namespace oravin::test {

/// A sample installation in a folder that is not there yet, as demo::WriteSample writes it. One of the same options
/// that was written as the tests were built is copied, where there is one: that takes a fraction of the time.
demo::Sample NewSample(const std::filesystem::path& folder, const demo::SampleOptions& options = {});

}  // namespace oravin::test
