/* A pointer that points into nothing the script owns never reaches the library. */
#include <windows.h>
// error: dll_wild_pointer.c Line 6: Not an address
int main(void)
{
    return (int)CallDLLFunc("calltest.so", "length", (char *)123456789);
}
