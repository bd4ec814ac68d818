/* Strings and memory. */
#ifndef __STRING_H
#define __STRING_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
#ifndef NULL
#define NULL ((void *)0)
#endif
/* Built-in functions: generated from script/builtins.def */
int strcmp(const char *s1, const char *s2);
char *strcpy(char *dest, const char *src);
int strncmp(const char *s1, const char *s2, size_t n);
char *strncpy(char *dest, const char *src, size_t n);
size_t strlen(const char *s);
char *strcat(char *dest, const char *src);
char *strncat(char *dest, const char *src, size_t n);
char *strchr(const char *s, int c);
char *strrchr(const char *s, int c);
char *strstr(const char *s, const char *find);
char *strtok(char *s, const char *delimiters);
size_t strspn(const char *s, const char *set);
char *strpbrk(const char *s, const char *set);
size_t strcspn(const char *s, const char *set);
int strcoll(const char *s1, const char *s2);
size_t strxfrm(char *dest, const char *src, size_t n);
char *strerror(int error);
char *strlwr(char *s);
char *strupr(char *s);
int stricmp(const char *s1, const char *s2);
int strnicmp(const char *s1, const char *s2, size_t n);
char *strrev(char *s);
char *strset(char *s, int c);
char *strnset(char *s, int c, size_t n);
char *strtrim(char *s);
char *strltrim(char *s);
char *strrtrim(char *s);
void *memchr(const void *s, int c, size_t n);
int memcmp(const void *s1, const void *s2, size_t n);
void *memcpy(void *dest, const void *src, size_t n);
void *memmove(void *dest, const void *src, size_t n);
void *memset(void *s, int c, size_t n);
/* End of built-in functions */
#endif
