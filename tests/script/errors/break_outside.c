/* break outside a loop or switch. */
// error: break_outside.c Line 5: Misplaced break
int main(void)
{
    break;
    return 0;
}
