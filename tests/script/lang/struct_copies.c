/* Struct copies in compiled functions: between locals, globals, array elements,
   members and heap blocks, chained, chosen by ?:, and in a recursion whose frames
   each hold a struct. */
#include <stdio.h>
#include <stdlib.h>
// out: 3 9 1 2 ok
// out: 9 12 0
// out: 55 55 7
struct pt { int x, y; };
struct box { struct pt lo, hi; char tag[6]; };
struct box shared;
struct pt origin;
int sum(struct pt p) { return p.x + p.y; }
int depth(int n, struct pt *acc)
{
    struct pt mine, back;
    mine = *acc;
    mine.x += n;
    back = mine;
    if (n > 0) depth(n - 1, &back);
    *acc = back;
    return acc->x;
}
int main(void)
{
    struct box b, c[3];
    struct pt p, q, r, *heap;
    int i;
    p.x = 3; p.y = 4;
    q = r = p;
    b.lo = q;
    b.hi = b.lo;
    b.hi.y = 9;
    b.tag[0] = 'o'; b.tag[1] = 'k'; b.tag[2] = 0;
    for (i = 0; i < 3; i++) { c[i] = b; c[i].lo.x = i; }
    shared = c[2];
    heap = (struct pt *)malloc(2 * sizeof(struct pt));
    heap[1] = shared.hi;
    heap[0] = i > 2 ? heap[1] : origin;
    p = p;
    printf("%d %d %d %d %s\n", r.x, b.hi.y, c[1].lo.x, shared.lo.x, shared.tag);
    printf("%d %d %d\n", heap[0].y, sum(heap[1]), sum(origin));
    q.x = 0;
    printf("%d %d %d\n", depth(10, &q), q.x, p.x + p.y);
    free(heap);
    return 0;
}
