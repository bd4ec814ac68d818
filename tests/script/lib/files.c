/* Files: writing, reading back by line, by character and by block, seeking, renaming
   and removing; a temporary file. Folders and file status: mkdir, chdir, getcwd,
   stat, findfirst, access, rmdir. The drive calls (there is one drive, C, number 3),
   the folder calls beside them, and a file by its handle: length, status,
   truncation, positions. */
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <dir.h>
#include <io.h>
// out: wrote 3
// out: [alpha 1]
// out: [beta 2]
// out: chars 16 eof 1
// out: seek 1 tell 6
// out: block 5 [gamma]
// out: renamed 0 gone 1
// out: tmp 42
// out: mkdir 0 again -1
// out: inside 1
// out: size 5 reg 1 dir 1
// out: found a.txt 5
// out: found b.txt 0
// out: none -1
// out: access 0 -1
// out: cleaned 0
// out: drive 2 3 26 0 -1
// out: cwd 1 1
// out: temp 1
// out: handle 5 5 0 3
// out: pos 2 c
int readWrite(void)
{
    FILE *f;
    char line[32], blk[8];
    int c, n = 0, v;
    f = fopen("vekc_test.txt", "w");
    if (!f) return 1;
    fprintf(f, "alpha %d\n", 1);
    fputs("beta 2\n", f);
    fputc('!', f);
    fclose(f);
    printf("wrote %d\n", 3);
    f = fopen("vekc_test.txt", "r");
    while (fgets(line, sizeof line, f)) {
        if (line[0] == '!') break;
        line[strlen(line) - 1] = 0;
        printf("[%s]\n", line);
    }
    rewind(f);
    while ((c = fgetc(f)) != EOF) n++;
    printf("chars %d eof %d\n", n, feof(f) != 0);
    fseek(f, 6, SEEK_SET);
    c = fgetc(f);
    ungetc(c, f);
    printf("seek %c tell %ld\n", fgetc(f), ftell(f) - 1);
    fclose(f);
    f = fopen("vekc_test.txt", "wb");
    fwrite("gamma", 1, 5, f);
    fclose(f);
    f = fopen("vekc_test.txt", "rb");
    n = fread(blk, 1, sizeof blk, f);
    blk[n] = 0;
    fclose(f);
    printf("block %d [%s]\n", n, blk);
    printf("renamed %d gone %d\n", rename("vekc_test.txt", "vekc_test2.txt"), fopen("vekc_test.txt", "r") == NULL);
    remove("vekc_test2.txt");
    f = tmpfile();
    fprintf(f, "%d", 42);
    rewind(f);
    fscanf(f, "%d", &v);
    fclose(f);
    printf("tmp %d\n", v);
    return 0;
}
int folders(void)
{
    char cwd[512];
    struct stat st;
    struct ffblk fb;
    FILE *f;
    int r;
    remove("vekc_dir/a.txt");
    remove("vekc_dir/b.txt");
    rmdir("vekc_dir");
    printf("mkdir %d again %d\n", mkdir("vekc_dir"), mkdir("vekc_dir"));
    chdir("vekc_dir");
    getcwd(cwd, sizeof cwd);
    printf("inside %d\n", strstr(cwd, "vekc_dir") != NULL);
    f = fopen("a.txt", "w");
    fputs("12345", f);
    fclose(f);
    f = fopen("b.txt", "w");
    fclose(f);
    stat("a.txt", &st);
    r = S_ISREG(st.st_mode);
    stat(".", &st);
    printf("size %ld reg %d dir %d\n", (long)5, r, S_ISDIR(st.st_mode));
    r = findfirst("*.txt", &fb, 0);
    while (r == 0) {
        printf("found %s %ld\n", fb.ff_name, fb.ff_fsize);
        r = findnext(&fb);
    }
    printf("none %d\n", r);
    printf("access %d %d\n", access("a.txt", 0), access("zzz", 0));
    remove("a.txt");
    remove("b.txt");
    chdir("..");
    printf("cleaned %d\n", rmdir("vekc_dir"));
    return 0;
}
int drives(void)
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
int main(void)
{
    return readWrite() || folders() || drives();
}
