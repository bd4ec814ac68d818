/* File status; st_mode holds S_IFDIR or S_IFREG and the permission bits. */
#ifndef __SYS_STAT_H
#define __SYS_STAT_H
struct stat {
    unsigned st_mode;
    long st_size;
    long st_atime;
    long st_mtime;
    long st_ctime;
    int st_nlink;
    int st_uid;
    int st_gid;
    int st_dev;
    int st_ino;
    int st_rdev;
};
#define S_IFMT 0xF000
#define S_IFDIR 0x4000
#define S_IFREG 0x8000
#define S_IREAD 0x0100
#define S_IWRITE 0x0080
#define S_IEXEC 0x0040
#define S_ISDIR(m) (((m) & S_IFMT) == S_IFDIR)
#define S_ISREG(m) (((m) & S_IFMT) == S_IFREG)
/* Built-in functions: generated from script/builtins.def */
int stat(const char *path, struct stat *status);
int fstat(int handle, struct stat *status);
/* End of built-in functions */
#endif
