/* Remainder by zero is the same error; a floating-point fault has its own number. */
// error: modulo_float.c Line 8: Floating point exception
int main(void)
{
    int zero = 0;
    double d = 0;
    if (zero) return 5 % zero;
    return (int)(1.0 / d);
}
