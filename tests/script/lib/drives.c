/* The drive calls (there is one drive, C, number 3), the folder calls beside them, and
   a file by its handle: length, status, truncation, positions. */
#include <stdio.h>
#include <string.h>
#include <dir.h>
#include <io.h>
#include <sys/stat.h>
// out: drive 2 3 26 0 -1
// out: cwd 1 1
// out: temp 1
// out: handle 5 5 0 3
// out: pos 2 c
int main(void)
{
    char cwd[512], here[512], name[16];
    struct stat st;
    fpos_t pos;
    FILE *f;
    int fd;
    printf("drive %d %d %d %d %d\n", getdisk(), _getdrive(), setdisk(2), _chdrive(3), _chdrive(4));
    getcwd(cwd, sizeof cwd);
    getcurdir(0, here);
    printf("cwd %d %d\n", strcmp(cwd + 1, here) == 0, strcmp(_getdcwd(0, here, sizeof here), cwd) == 0);
    strcpy(name, "vkXXXXXX");
    printf("temp %d\n", mktemp(name) == name && strcmp(name, "vkXXXXXX") != 0);
    f = tmpfile();
    fputs("abcde", f);
    fflush(f);
    fd = fileno(f);
    fstat(fd, &st);
    printf("handle %ld %ld %d %ld\n", filelength(fd), st.st_size, isatty(fd), (chsize(fd, 3), filelength(fd)));
    rewind(f);
    fgetc(f);
    fgetc(f);
    fgetpos(f, &pos);
    fgetc(f);
    fsetpos(f, &pos);
    printf("pos %ld %c\n", pos, fgetc(f));
    fclose(f);
    return 0;
}
