// A header of the program.
#ifndef OWN_HEADERS
#define OWN_HEADERS 1
#elif OWN_HEADERS == 1
#undef OWN_HEADERS
#define OWN_HEADERS 2
#else
#undef OWN_HEADERS
#define OWN_HEADERS 3
#endif
