/* WinExec and ShellExecute start programs without a command shell: quoted words with
   blanks and quotes reach the program whole; failures answer Windows' numbers; files
   and URLs go to the desktop's opener, which this run takes away. */
#include <windows.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <io.h>
#include <dir.h>
// out: exec 1 files 1 1
// out: missing 1 1 1
// out: shell 1 file 1 in folder 1 1
// out: missing file 1 1 1 1
// out: no opener 1 1
int appeared(const char *name)
{
    DWORD end = GetTickCount() + 10000;
    while (access(name, 0) != 0)
        if (GetTickCount() > end) return 0;
    return 1;
}

int main(void)
{
    char path[1024], *old;
    UINT r;
    FILE *f;
    r = WinExec("touch \"a b.txt\" 'c\"d.txt'", SW_HIDE);
    printf("exec %d files %d %d\n", r > 31, appeared("a b.txt"), appeared("c\"d.txt"));

    f = fopen("plain.txt", "w");
    fclose(f);
    printf("missing %d %d %d\n", WinExec("vekc-no-such-program", SW_SHOW) == ERROR_FILE_NOT_FOUND,
           WinExec("/vekc/no/such/folder/prog", SW_SHOW) == ERROR_PATH_NOT_FOUND,
           WinExec("./plain.txt", SW_SHOW) == SE_ERR_ACCESSDENIED);

    mkdir("sub");
    r = (UINT)ShellExecute(NULL, "open", "touch", "\"from shell.txt\"", NULL, SW_SHOW);
    printf("shell %d file %d", r > 31, appeared("from shell.txt"));
    r = (UINT)ShellExecute(NULL, NULL, "touch", "inside.txt", "sub", SW_SHOW);
    printf(" in folder %d %d\n", r > 31, appeared("sub/inside.txt"));

    printf("missing file %d %d %d %d\n", (UINT)ShellExecute(NULL, "open", "vekc-missing.txt", NULL, NULL, 0) == SE_ERR_FNF,
           (UINT)ShellExecute(NULL, "open", "nodir/missing.txt", NULL, NULL, 0) == SE_ERR_PNF,
           (UINT)ShellExecute(NULL, "open", "plain.txt", NULL, "vekc-no-folder", 0) == SE_ERR_PNF,
           (UINT)ShellExecute(NULL, "print", "plain.txt", NULL, NULL, 0) == SE_ERR_NOASSOC);

    old = getenv("PATH");
    strcpy(path, "PATH=");
    strcat(path, old);
    putenv("PATH=/vekc-nowhere");
    printf("no opener %d %d\n", (UINT)ShellExecute(NULL, "open", "plain.txt", NULL, NULL, 0) == SE_ERR_NOASSOC,
           (UINT)ShellExecute(NULL, NULL, "https://example.org/", NULL, NULL, 0) == SE_ERR_NOASSOC);
    putenv(path);

    remove("a b.txt");
    remove("c\"d.txt");
    remove("plain.txt");
    remove("from shell.txt");
    remove("sub/inside.txt");
    rmdir("sub");
    return 0;
}
