/* Bit-fields of enum type keep their constants' values: unsigned when the enum has
   no negative constant (by tag, inline or through a typedef), signed otherwise. */
#include <stdio.h>
// out: 3 2 7 -1 1
enum colour { RED, GREEN, BLUE, WHITE };
typedef enum { SMALL = 5, LARGE = 7 } size;
enum sign { MINUS = -1, PLUS = 1 };
struct pixel {
    enum colour c : 2;
    enum { LOW, MID, HIGH } level : 2;
    size s : 3;
    enum sign sg : 2;
    enum sign sp : 2;
};
int main(void)
{
    struct pixel p;
    p.c = WHITE;
    p.level = HIGH;
    p.s = LARGE;
    p.sg = MINUS;
    p.sp = PLUS;
    printf("%d %d %d %d %d\n", p.c, p.level, p.s, p.sg, p.sp);
    return 0;
}
