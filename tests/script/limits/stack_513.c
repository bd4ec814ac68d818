/* The 513th value cell overflows the evaluation stack. */
// error: stack_513.c Line 15: Stack owerflow
#define P1(e) (x + e)
#define P2(e) P1(P1(e))
#define P4(e) P2(P2(e))
#define P8(e) P4(P4(e))
#define P16(e) P8(P8(e))
#define P32(e) P16(P16(e))
#define P64(e) P32(P32(e))
#define P128(e) P64(P64(e))
#define P256(e) P128(P128(e))
int main(void)
{
    int x = 0;
    return P256(P256(x));
}
