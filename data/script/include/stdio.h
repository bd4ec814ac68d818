/* Standard input and output. */
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
/* Built-in functions: generated from script/builtins.def */
int getchar(void);
int putchar(int c);
char *gets(char *buffer);
int puts(const char *text);
int scanf(const char *format, ...);
int printf(const char *format, ...);
void perror(const char *text);
FILE *fopen(const char *name, const char *mode);
int fclose(FILE *stream);
int fgetc(FILE *stream);
int fputc(int c, FILE *stream);
char *fgets(char *buffer, int size, FILE *stream);
int fputs(const char *text, FILE *stream);
size_t fread(void *buffer, size_t size, size_t count, FILE *stream);
size_t fwrite(const void *buffer, size_t size, size_t count, FILE *stream);
int fseek(FILE *stream, long offset, int origin);
int ungetc(int c, FILE *stream);
int feof(FILE *stream);
int ferror(FILE *stream);
void clearerr(FILE *stream);
long ftell(FILE *stream);
int fgetpos(FILE *stream, fpos_t *position);
int fsetpos(FILE *stream, const fpos_t *position);
int setvbuf(FILE *stream, char *buffer, int mode, size_t size);
int rename(const char *oldName, const char *newName);
void rewind(FILE *stream);
int fflush(FILE *stream);
int remove(const char *name);
FILE *tmpfile(void);
char *tmpnam(char *buffer);
int fscanf(FILE *stream, const char *format, ...);
int fprintf(FILE *stream, const char *format, ...);
int fileno(FILE *stream);
int sscanf(const char *s, const char *format, ...);
int sprintf(char *buffer, const char *format, ...);
/* End of built-in functions */
#endif
