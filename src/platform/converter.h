#pragma once

#include <cstdint>
#include <string>

namespace oravin::platform {

/// The library that converts a 3D Studio mesh to a model of the game. It is not part of the program: the user puts it
/// into the program folder. On Windows it is a 32-bit library; elsewhere a shared library with the same interface.
#ifdef _WIN32
inline constexpr const char* converterLibrary = "3ds2sl.dll";
#else
inline constexpr const char* converterLibrary = "3ds2sl.so";
#endif

/// The one function of the library:
///
///     int32 convert3ds2sl(const char* source, const char* option, const char* destination)
///
/// Each argument points to a zero-terminated single-byte text; paths are native. The 32-bit result is 0 for success; 1
/// to 3 are the library's errors. The calling convention is stdcall on Windows and that of C elsewhere.
inline constexpr const char* converterFunction = "convert3ds2sl";

/// The library, loaded for as long as this record lives.
struct Converter {
  /// Loads the library and finds its function.
  /// @param libraryPath a Windows path of the core
  explicit Converter(const std::string& libraryPath);
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter();

  std::string whyNot;          ///< why it cannot be called, in plain words: "it is not there"; empty if it can
  std::intptr_t library = 0;   ///< the system's handle; 0 if not loaded
  std::intptr_t function = 0;  ///< address of the function
};

/// Calls the function of a loaded library (whyNot is empty) and waits for its result.
std::int32_t Convert(const Converter& converter, const char* source, const char* option, const char* destination);

}  // namespace oravin::platform
