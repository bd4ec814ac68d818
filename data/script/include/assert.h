#undef assert
#ifdef NDEBUG
#define assert(e) ((void)0)
#else
#define assert(e) ((void)((e) || (fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", #e, __File(), __Line()), exit(3), 0)))
#endif
