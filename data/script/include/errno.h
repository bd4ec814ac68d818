#ifndef __ERRNO_H
#define __ERRNO_H
#define errno __Errno()
#define ENOENT 2
#define EBADF 9
#define ENOMEM 12
#define EACCES 13
#define EEXIST 17
#define EINVAL 22
#define EDOM 33
#define ERANGE 34
/* Built-in functions: generated from script/builtins.def */
int __Errno(void);
/* End of built-in functions */
#endif
