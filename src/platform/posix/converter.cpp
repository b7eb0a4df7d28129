#include "platform/converter.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/native_path.h"

namespace oravin::platform {

namespace {

using Function = std::int32_t (*)(const char*, const char*, const char*);

/// The loader's error, without the library's path at its start.
std::string LoaderSays(const std::string& path) {
  const char* said = dlerror();
  std::string text = said == nullptr ? "no reason is given" : said;
  if (text.starts_with(path + ": ")) text.erase(0, path.size() + 2);
  return text;
}

}  // namespace

Converter::Converter(const std::string& libraryPath) {
  // Absolute, because the loader searches for a bare name in the system's folders.
  std::error_code failure;
  const std::string path = std::filesystem::absolute(ToNativePath(libraryPath), failure).string();
  if (!std::filesystem::exists(path, failure)) {
    whyNot = "it is not there";
    return;
  }
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    whyNot = "this machine cannot load it as a library (" + LoaderSays(path) + ")";
    return;
  }
  library = reinterpret_cast<std::intptr_t>(handle);
  function = reinterpret_cast<std::intptr_t>(dlsym(handle, converterFunction));
  if (function == 0) whyNot = "it has no function named " + std::string(converterFunction);
}

Converter::~Converter() {
  if (library != 0) dlclose(reinterpret_cast<void*>(library));  // NOLINT(performance-no-int-to-ptr): it came from one
}

std::int32_t Convert(const Converter& converter, const char* source, const char* option, const char* destination) {
  const auto call = reinterpret_cast<Function>(converter.function);  // NOLINT(performance-no-int-to-ptr)
  return call(source, option, destination);
}

}  // namespace oravin::platform
