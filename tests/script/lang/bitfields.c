/* Bit-fields: packing into units, wraparound at their width, signed fields,
   initialisers that leave the neighbours alone; fields of enum type keep their
   constants' values, unsigned when the enum has no negative constant (by tag, inline
   or through a typedef), signed otherwise. */
#include <stdio.h>
// out: 4 -1 7 0
// out: 3 5 1
// out: 8 12
// out: 1 2 3
// out: 3 2 7 -1 1
struct flags {
    unsigned a : 3;
    int b : 2;
    unsigned c : 3;
    unsigned : 0;
    unsigned d : 4;
};
struct small { unsigned x : 2, y : 3, z : 1; };
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
    struct flags f;
    struct small s = {3, 5, 1};
    struct small t = {1, 2, 3};
    struct pixel p;
    f.a = 12;
    f.b = 3;
    f.c = 7;
    f.d = 16;
    printf("%d %d %d %d\n", f.a, f.b, f.c, f.d);
    printf("%d %d %d\n", s.x, s.y, s.z);
    f.a = 7;
    f.a++;
    f.c += 1;
    printf("%d %d\n", (int)sizeof(struct flags), (f.a + 8) + (f.c + 4));
    printf("%d %d %d\n", t.x, t.y, t.z + 2);
    p.c = WHITE;
    p.level = HIGH;
    p.s = LARGE;
    p.sg = MINUS;
    p.sp = PLUS;
    printf("%d %d %d %d %d\n", p.c, p.level, p.s, p.sg, p.sp);
    return 0;
}
