// Unpacking the models of a sample, against libdeflate and LZ4 on the same content.

#include <libdeflate.h>
#include <lz4.h>

#include <string>
#include <vector>

#include "archive/decompress.h"
#include "benches.h"
#include "demo/compressor.h"
#include "demo/model_writer.h"

namespace oravin::bench {

namespace {

using Data = std::vector<std::uint8_t>;

std::vector<Data> Models() {
  std::vector<Data> models;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    demo::ModelOptions options;
    options.seed = seed;
    options.name = "model";
    options.size = 20000 + static_cast<int>(seed) * 15000;
    options.textures = {"hull", "wing"};
    models.push_back(demo::BuildModel(options));
  }
  return models;
}

Data Deflated(const Data& model) {
  libdeflate_compressor* compressor = libdeflate_alloc_compressor(6);
  Data out(libdeflate_deflate_compress_bound(compressor, model.size()));
  out.resize(libdeflate_deflate_compress(compressor, model.data(), model.size(), out.data(), out.size()));
  libdeflate_free_compressor(compressor);
  return out;
}

Data Lz4ed(const Data& model) {
  Data out(static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(model.size()))));
  const int size =
      LZ4_compress_default(reinterpret_cast<const char*>(model.data()), reinterpret_cast<char*>(out.data()),
                           static_cast<int>(model.size()), static_cast<int>(out.size()));
  out.resize(static_cast<std::size_t>(size));
  return out;
}

struct Packed {
  std::size_t size;
  Data own;
  Data deflate;
  Data lz4;
};

std::vector<Packed> PackAll() {
  std::vector<Packed> all;
  for (const Data& model : Models())
    all.push_back({model.size(), demo::Compress(model), Deflated(model), Lz4ed(model)});
  return all;
}

}  // namespace

void AddDecompress() {
  const auto packed = std::make_shared<std::vector<Packed>>(PackAll());
  const std::string figure = "Decompress, 12 models";
  benchmark::RegisterBenchmark((figure + "/oravin").c_str(), [packed](benchmark::State& state) {
    Unpacked output;
    for (auto _ : state) {
      for (const Packed& model : *packed) {
        Decompress(model.own, output);
        benchmark::DoNotOptimize(output.bytes.get());
      }
    }
  });
  benchmark::RegisterBenchmark((figure + "/libdeflate (wanted: below 1)").c_str(), [packed](benchmark::State& state) {
    libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
    Data output(1U << 20U);
    for (auto _ : state) {
      for (const Packed& model : *packed) {
        std::size_t size = 0;
        libdeflate_deflate_decompress(decompressor, model.deflate.data(), model.deflate.size(), output.data(),
                                      model.size, &size);
        benchmark::DoNotOptimize(output.data());
      }
    }
    libdeflate_free_decompressor(decompressor);
  });
  benchmark::RegisterBenchmark((figure + "/LZ4 (wanted: below 2)").c_str(), [packed](benchmark::State& state) {
    Data output(1U << 20U);
    for (auto _ : state) {
      for (const Packed& model : *packed) {
        LZ4_decompress_safe(reinterpret_cast<const char*>(model.lz4.data()), reinterpret_cast<char*>(output.data()),
                            static_cast<int>(model.lz4.size()), static_cast<int>(output.size()));
        benchmark::DoNotOptimize(output.data());
      }
    }
  });
}

}  // namespace oravin::bench
