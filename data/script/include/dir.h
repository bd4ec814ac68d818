/* Folder search and the drive calls; there is one drive, C. */
#ifndef __DIR_H
#define __DIR_H
#define MAXPATH 260
#define MAXDRIVE 3
#define MAXDIR 256
#define MAXFILE 256
#define MAXEXT 256
#define FA_RDONLY 0x01
#define FA_HIDDEN 0x02
#define FA_SYSTEM 0x04
#define FA_LABEL 0x08
#define FA_DIREC 0x10
#define FA_ARCH 0x20
struct ffblk {
    long ff_reserved;
    long ff_fsize;
    unsigned long ff_attrib;
    unsigned short ff_ftime;
    unsigned short ff_fdate;
    char ff_name[256];
};
/* Built-in functions: generated from script/builtins.def */
int findfirst(const char *pattern, struct ffblk *block, int attributes);
int findnext(struct ffblk *block);
int chdir(const char *path);
int _chdrive(int drive);
char *getcwd(char *buffer, int size);
int getcurdir(int drive, char *directory);
char *_getdcwd(int drive, char *buffer, int size);
int getdisk(void);
int _getdrive(void);
int setdisk(int drive);
int mkdir(const char *path);
char *mktemp(char *pattern);
int rmdir(const char *path);
/* End of built-in functions */
#endif
