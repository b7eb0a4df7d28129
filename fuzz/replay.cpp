// Feeds every file of a corpus to one fuzzer, without a fuzzing engine: oravin's ordinary tests run this.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
  namespace fs = std::filesystem;
  if (count != 2 || !fs::is_directory(arguments[1])) {
    std::fprintf(stderr, "usage: %s CORPUS-FOLDER\n", arguments[0]);
    return 2;
  }
  std::vector<fs::path> inputs;
  for (const fs::directory_entry& item : fs::directory_iterator(arguments[1])) {
    if (item.is_regular_file()) inputs.push_back(item.path());
  }
  std::sort(inputs.begin(), inputs.end());
  for (const fs::path& input : inputs) {
    std::printf("%s\n", input.filename().string().c_str());
    std::fflush(stdout);  // an input that ends the process is the last one named
    std::ifstream file(input, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
  }
  std::printf("%zu inputs\n", inputs.size());
  return inputs.empty() ? 1 : 0;
}
