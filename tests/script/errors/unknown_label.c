/* goto to a label that does not exist. */
// error: unknown_label.c Line 4: Unknown label
int main(void)
{
    goto nowhere;
    return 0;
}
