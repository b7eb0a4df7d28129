// A library without the converter's function.

extern "C" int convert_something_else() { return 0; }
