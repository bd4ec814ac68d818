/* Twelve argument words at most follow the library and function names. */
#include <windows.h>
// error: dll_too_many_arguments.c Line 6: Argument mismatch error
int main(void)
{
    return (int)CallDLLFunc("calltest.so", "weigh12", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13);
}
