/* 32 KiB of data space: globals, constants and frames share it. */
// out: fits
// error: data_space.c Line 13: Limitation: data space full
char big[32000];
void fill(void)
{
    char more[1000];
    more[0] = 0;
}
int main(void)
{
    printf("fits\n");
    fill();
    return 0;
}
