/* An error in a for loop's step reports the line of the last statement run. */
// error: compiled_for_step.c Line 9: Divide by 0
int main(void)
{
    int i, x = 0;
    for (i = 0; i < 3; i += 1 / (1 - i)) {
        if (i > 5)
            x++;
        if (i > 5)
            x--;
    }
    return x;
}
