/* Strings and memory. The functions are built in: no prototypes needed. */
#ifndef __STRING_H
#define __STRING_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
#ifndef NULL
#define NULL ((void *)0)
#endif
#endif
