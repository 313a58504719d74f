// The fills of the library in builds with sanitizers, none of which looks into the C library's own.
// The library calls the one of the program that it is loaded into: it is as it is shipped.
#include <wchar.h>

wchar_t* wmemset(wchar_t* first, wchar_t word, size_t count) {
    for (size_t i = 0; i < count; ++i) first[i] = word;
    return first;
}
