/* Folders and file status: mkdir, chdir, getcwd, stat, findfirst, access, rmdir. */
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <dir.h>
// out: mkdir 0 again -1
// out: inside 1
// out: size 5 reg 1 dir 1
// out: found a.txt 5
// out: found b.txt 0
// out: none -1
// out: access 0 -1
// out: cleaned 0
int main(void)
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
