/* Variable argument lists of script functions: each argument takes a multiple of four
   bytes after the last named parameter. */
#ifndef __STDARG_H
#define __STDARG_H
typedef char *va_list;
#define __va_size(T) ((sizeof(T) + 3) & ~3)
#define va_start(ap, last) ((ap) = __va_start())
#define va_arg(ap, T) (*(T *)(((ap) += __va_size(T)) - __va_size(T)))
#define va_end(ap) ((void)0)
#endif
