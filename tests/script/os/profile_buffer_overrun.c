/* A buffer size larger than the script's array is caught before anything is written. */
#include <windows.h>
// error: profile_buffer_overrun.c Line 7: Illegal use of pointer
int main(void)
{
    char small[8];
    GetPrivateProfileString("Sec", "Key", "a default value", small, 64, "vekc_os.ini");
    return 0;
}
