/* Standard input and output. The functions are built in: no prototypes needed. */
#ifndef __STDIO_H
#define __STDIO_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
typedef struct __FILE FILE;
typedef long fpos_t;
#ifndef NULL
#define NULL ((void *)0)
#endif
#define EOF (-1)
#define BUFSIZ 512
#define FILENAME_MAX 260
#define FOPEN_MAX 61
#define L_tmpnam 260
#define TMP_MAX 32767
#define SEEK_SET 0
#define SEEK_CUR 1
#define SEEK_END 2
#define _IOFBF 0
#define _IOLBF 1
#define _IONBF 2
#define stdin ((FILE *)256)
#define stdout ((FILE *)272)
#define stderr ((FILE *)288)
#define getc(f) fgetc(f)
#define putc(c, f) fputc((c), (f))
#endif
