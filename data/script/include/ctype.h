/* Character classes. The is... functions are built in; the case mappings are here. */
#ifndef __CTYPE_H
#define __CTYPE_H
static int tolower(int c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; }
static int toupper(int c) { return c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c; }
#endif
