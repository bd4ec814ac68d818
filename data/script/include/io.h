#ifndef __IO_H
#define __IO_H
#define F_OK 0
#define W_OK 2
#define R_OK 4
/* Built-in functions: generated from script/builtins.def */
int access(const char *path, int mode);
int chmod(const char *path, int mode);
int chsize(int handle, long size);
long filelength(int handle);
int isatty(int handle);
int unlink(const char *path);
/* End of built-in functions */
#endif
