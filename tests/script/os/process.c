/* WinExec and ShellExecute start programs with no command shell: quoted words with
   blanks and quotes reach the program whole. Failures answer Windows' numbers; files
   and URLs go to the desktop's opener, which this run takes away. */
#include <windows.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <io.h>
#include <dir.h>
// out: exec 1 1 1 missing 1 1 1 shell 1 1 1 1
// out: missing file 1 1 1 1 1 no opener 1 1
int appeared(const char *name)
{
    DWORD end = GetTickCount() + 10000;
    while (access(name, 0) != 0)
        if (GetTickCount() > end) return 0;
    return remove(name) == 0;
}

int main(void)
{
    char path[1024];
    fclose(fopen("plain.txt", "w"));
    mkdir("sub");
    printf("exec %d %d %d", WinExec("touch \"a b.txt\" 'c\"d.txt'", SW_HIDE) > 31, appeared("a b.txt"), appeared("c\"d.txt"));
    printf(" missing %d %d %d", WinExec("vekc-no-such-program", SW_SHOW) == ERROR_FILE_NOT_FOUND,
           WinExec("/vekc/no/such/folder/prog", SW_SHOW) == ERROR_PATH_NOT_FOUND,
           WinExec("./plain.txt", SW_SHOW) == SE_ERR_ACCESSDENIED);
    printf(" shell %d %d", (UINT)ShellExecute(NULL, "open", "touch", "\"from shell.txt\"", NULL, 0) > 31,
           appeared("from shell.txt"));
    printf(" %d %d\n", (UINT)ShellExecute(NULL, NULL, "touch", "inside.txt", "sub", 0) > 31, appeared("sub/inside.txt"));
    printf("missing file %d %d %d %d %d", (UINT)ShellExecute(NULL, "open", "vekc-missing.txt", NULL, NULL, 0) == SE_ERR_FNF,
           (UINT)ShellExecute(NULL, "open", "nodir/missing.txt", NULL, NULL, 0) == SE_ERR_PNF,
           (UINT)ShellExecute(NULL, "open", "plain.txt", NULL, "vekc-no-folder", 0) == SE_ERR_PNF,
           (UINT)ShellExecute(NULL, "edit", "touch", NULL, NULL, 0) == SE_ERR_FNF,
           (UINT)ShellExecute(NULL, "print", "plain.txt", NULL, NULL, 0) == SE_ERR_NOASSOC);
    sprintf(path, "PATH=%s", getenv("PATH"));
    putenv("PATH=/vekc-nowhere");
    printf(" no opener %d %d\n", (UINT)ShellExecute(NULL, "open", "plain.txt", NULL, NULL, 0) == SE_ERR_NOASSOC,
           (UINT)ShellExecute(NULL, NULL, "https://example.org/", NULL, NULL, 0) == SE_ERR_NOASSOC);
    putenv(path);
    remove("plain.txt");
    rmdir("sub");
    return 0;
}
