#include "support/sample_copy.h"

#include <string>

#include "demo/text_files.h"
#include "support/temporary_folder.h"

namespace oravin::test {

namespace fs = std::filesystem;

demo::Sample NewSample(const fs::path& folder, const demo::SampleOptions& options) {
  const fs::path kept =
      fs::path(KEPT_SAMPLES) /
      (std::to_string(options.entries) + "-" + std::to_string(options.ships) + "-" + std::to_string(options.megabytes));
  if (!fs::exists(kept)) return demo::WriteSample(folder, options);
  fs::copy(kept, folder, fs::copy_options::recursive);
  demo::Sample sample = demo::DescribeSample(folder, options);
  WriteFileAt(sample.config / "oravin" / "registry.reg", demo::BuildRegistry(sample.game, sample.program));
  return sample;
}

}  // namespace oravin::test
