/* A division by zero between constants is found while compiling, and reported where
   it stands, not at the top of the script. */
// error: divide_constant.c Line 8: Divide by 0
int main(void)
{
    int x = 2;

    return x + 1 / 0;
}
