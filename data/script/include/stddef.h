/* Common definitions. The built-in functions need no declarations. */
#ifndef __STDDEF_H
#define __STDDEF_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
typedef int ptrdiff_t;
typedef unsigned short wchar_t;
#ifndef NULL
#define NULL ((void *)0)
#endif
#define offsetof(type, member) ((size_t) & ((type *)0)->member)
#endif
