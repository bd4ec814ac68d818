/* Assertions: assert(e) reports the failed expression with __File() and __Line(). */
#ifndef __ASSERT_H
#define __ASSERT_H
/* Built-in functions: generated from script/builtins.def */
int __Line(void);
char *__File(void);
/* End of built-in functions */
#endif
#undef assert
#ifdef NDEBUG
#define assert(e) ((void)0)
#else
#define assert(e) ((void)((e) || (fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", #e, __File(), __Line()), exit(3), 0)))
#endif
