/* Character classes. The is... functions are built in; the case mappings are written
   here in VEK C. */
#ifndef __CTYPE_H
#define __CTYPE_H
/* Built-in functions: generated from script/builtins.def */
int isspace(int c);
int isdigit(int c);
int isupper(int c);
int islower(int c);
int isprint(int c);
int iscntrl(int c);
int isalpha(int c);
int isalnum(int c);
int isxdigit(int c);
int ispunct(int c);
int isgraph(int c);
/* End of built-in functions */
static int tolower(int c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; }
static int toupper(int c) { return c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c; }
#endif
