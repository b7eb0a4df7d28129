// A library without the converter's function.

extern "C" int ConvertSomethingElse() { return 0; }
