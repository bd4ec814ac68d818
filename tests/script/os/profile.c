/* Profile files: a bare name, and "win.ini" for the calls that name none, land in the
   home that GetWindowsDirectory names. Reading cuts to the buffer and lists sections. */
#include <windows.h>
#include <stdio.h>
#include <string.h>
// out: read [two words] -3 42
// out: win.ini [yes] 5 in the home 1 / 1 system 1
// out: cut 3 [abc] short 8 9 sections Colors Sizes deleted [gone]
#define INI "vekc_os.ini"
/* Whether the file is in the folder; it is gone afterwards. */
int removed(const char *dir, const char *name)
{
    char path[400];
    sprintf(path, "%s%s", dir, name);
    return remove(path) == 0;
}

int main(void)
{
    char dir[300], sys[300], buf[64];
    UINT n = GetWindowsDirectory(dir, sizeof dir);
    WritePrivateProfileString("Colors", "Name", " \"two words\" ", INI);
    WritePrivateProfileString("Sizes", "Depth", "-3", INI);
    WritePrivateProfileString("Sizes", "Long", "abcdef", INI);
    WriteProfileString("Zolder", "Flag", "yes");
    GetPrivateProfileString("colors", "NAME", "", buf, sizeof buf, INI);
    printf("read [%s] %d %u\n", buf, (int)GetPrivateProfileInt("SIZES", "depth", 0, INI),
           GetPrivateProfileInt("Sizes", "None", 42, INI));
    GetSystemDirectory(sys, sizeof sys);
    GetProfileString("Zolder", "Flag", "no", buf, sizeof buf);
    printf("win.ini [%s] %u in the home %d / %d system %d\n", buf, GetProfileInt("Zolder", "Missing", 5),
           removed(dir, "win.ini"), dir[n - 1] == '/', strcmp(dir, sys) == 0);
    n = GetPrivateProfileString("Sizes", "Long", "", buf, 4, INI);
    printf("cut %u [%s] short %u %u", n, buf, GetShortPathName("/tmp/x.c", sys, sizeof sys),
           GetShortPathName("/tmp/x.c", sys, 4));
    GetPrivateProfileString(NULL, NULL, "", sys, sizeof sys, INI);
    printf(" sections %s %s", sys, sys + strlen(sys) + 1);
    WritePrivateProfileString("Colors", NULL, NULL, INI);
    GetPrivateProfileString("Colors", "Name", "gone", buf, sizeof buf, INI);
    printf(" deleted [%s]\n", buf);
    return !removed(dir, INI);
}
