/* Profile files: a bare name lands in the home, the folder GetWindowsDirectory names;
   the "win.ini" calls use a file there too. Reading cuts to the buffer and lists the
   sections; writing a null key deletes the section. GetShortPathName keeps the path. */
#include <windows.h>
#include <stdio.h>
#include <string.h>
// out: written 1 1
// out: read [two words] 7 -3 42
// out: in the home 1, ends in / 1, same as system 1
// out: win.ini [yes] 5 1
// out: cut 3 [abc]
// out: sections Colors Sizes
// out: deleted [gone]
// out: short 8 [/tmp/x.c] small 9
#define INI "vekc_os.ini"
int main(void)
{
    char dir[300], sys[300], path[340], buf[64], *p;
    FILE *f;
    UINT n = GetWindowsDirectory(dir, sizeof dir);
    printf("written %d %d\n", WritePrivateProfileString("Colors", "Name", " \"two words\" ", INI),
           WritePrivateProfileString("Sizes", "Width", "7", INI));
    WritePrivateProfileString("Sizes", "Depth", "-3", INI);
    GetPrivateProfileString("colors", "NAME", "", buf, sizeof buf, INI);
    printf("read [%s] %u %d %u\n", buf, GetPrivateProfileInt("Sizes", "Width", 0, INI),
           (int)GetPrivateProfileInt("SIZES", "depth", 0, INI), GetPrivateProfileInt("Sizes", "None", 42, INI));

    sprintf(path, "%s%s", dir, INI);
    f = fopen(path, "r");
    GetSystemDirectory(sys, sizeof sys);
    printf("in the home %d, ends in / %d, same as system %d\n", f != NULL, dir[n - 1] == '/', strcmp(dir, sys) == 0);
    if (f) fclose(f);

    WriteProfileString("Zolder", "Flag", "yes");
    GetProfileString("Zolder", "Flag", "no", buf, sizeof buf);
    sprintf(path, "%swin.ini", dir);
    f = fopen(path, "r");
    printf("win.ini [%s] %u %d\n", buf, GetProfileInt("Zolder", "Missing", 5), f != NULL);
    if (f) fclose(f);
    WriteProfileString("Zolder", NULL, NULL);

    WritePrivateProfileString("Sizes", "Long", "abcdef", INI);
    n = GetPrivateProfileString("Sizes", "Long", "", buf, 4, INI);
    printf("cut %u [%s]\n", n, buf);

    GetPrivateProfileString(NULL, NULL, "", buf, sizeof buf, INI);
    printf("sections");
    for (p = buf; *p; p += strlen(p) + 1)
        printf(" %s", p);
    printf("\n");

    WritePrivateProfileString("Colors", NULL, NULL, INI);
    GetPrivateProfileString("Colors", "Name", "gone", buf, sizeof buf, INI);
    printf("deleted [%s]\n", buf);
    sprintf(path, "%s%s", dir, INI);
    remove(path);

    n = GetShortPathName("/tmp/x.c", buf, sizeof buf);
    printf("short %u [%s] small %u\n", n, buf, GetShortPathName("/tmp/x.c", buf, 4));
    return 0;
}
