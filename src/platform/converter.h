#pragma once

#include <cstdint>
#include <string>

namespace oravin::platform {

/// The library that turns a mesh of 3D Studio into a model of the game. It is not part of the program: the person puts
/// it into the program folder. On Windows it is a 32-bit library; elsewhere a shared library of the same interface.
#ifdef _WIN32
inline constexpr const char* converterLibrary = "3ds2sl.dll";
#else
inline constexpr const char* converterLibrary = "3ds2sl.so";
#endif

/// The one function of the library:
///
///     int32 convert3ds2sl(const char* source, const char* option, const char* destination)
///
/// Each argument is the address of the first byte of a single-byte text that a zero byte ends; paths are the machine's
/// own. The 32-bit result is 0 for success; 1 to 3 are the library's errors. On Windows it is called by stdcall,
/// elsewhere as the machine's C functions are.
inline constexpr const char* converterFunction = "convert3ds2sl";

/// The library, loaded for as long as this record lives.
struct Converter {
  /// Loads the library and looks for its function.
  /// @param libraryPath a Windows path of the core
  explicit Converter(const std::string& libraryPath);
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter();

  std::string whyNot;          ///< why it cannot be called, in plain words: "it is not there"; empty when it can
  std::intptr_t library = 0;   ///< the system's handle; 0 when it was not loaded
  std::intptr_t function = 0;  ///< where the function lies
};

/// Calls the function of a library that was loaded (whyNot is empty), and waits for its result.
std::int32_t Convert(const Converter& converter, const char* source, const char* option, const char* destination);

}  // namespace oravin::platform
