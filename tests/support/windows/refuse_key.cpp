// Makes a key of the machine's registry refuse keys that stay: it is made anew as one that goes with the system's run,
// and below such a key the system makes none that stays. Usage: refuse_key KEY, a key of HKEY_LOCAL_MACHINE

#include <windows.h>

int wmain(int count, wchar_t** words) {
  if (count != 2) return 2;
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, words[1]);
  HKEY key = nullptr;
  const LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, words[1], 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                                         nullptr, &key, nullptr);
  return status == ERROR_SUCCESS ? 0 : 1;
}
