// Holds a file open for reading until its standard input ends. Usage: hold_file FILE

#include <windows.h>

#include <cstdio>

int wmain(int count, wchar_t** words) {
  if (count != 2) return 2;
  const HANDLE file = CreateFileW(words[1], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::puts("held");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  CloseHandle(file);
  return 0;
}
