/* A macro used with the wrong number of arguments. */
// error: macro_args.c Line 6: Mismatched macro arguments
#define ADD(a, b) ((a) + (b))
int main(void)
{
    return ADD(1, 2, 3);
}
