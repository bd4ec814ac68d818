/* longjmp to a buffer whose setjmp has returned, or that no setjmp filled. */
// error: longjmp_dead.c Line 12: Call to longjmp without setjmp
#include <setjmp.h>
jmp_buf env, empty;
void arm(void)
{
    setjmp(env);
}
int main(void)
{
    arm();
    longjmp(env, 1);
    return 0;
}
