/* Structs, unions, enums and typedefs: layout, assignment, passing and returning.
   Struct copies in compiled functions: between locals, globals, array elements,
   members and heap blocks, chained, chosen by ?:, and in a recursion whose frames
   each hold a struct. */
#include <stdio.h>
#include <stdlib.h>
// out: 3 4 7
// out: 12 8
// out: 1 2 5
// out: 65 1
// out: 0 1 5 6
// out: 4 6
// out: Ann 30
// out: 3 9 1 2 ok
// out: 9 12 0
// out: 55 55 7
typedef struct point { int x, y; } Point;
struct rect { Point a, b; };
union word { unsigned int u; unsigned char b[4]; };
enum colour { RED, GREEN, BLUE = 5, VIOLET };
typedef struct person { char name[8]; int age; struct person *next; } Person;

Point add(Point p, Point q)
{
    Point r;
    r.x = p.x + q.x;
    r.y = p.y + q.y;
    return r;
}
int area(struct rect *r) { return (r->b.x - r->a.x) * (r->b.y - r->a.y); }

void layouts(void)
{
    Point p = {1, 2}, q;
    struct rect r = {{0, 0}, {3, 4}};
    union word w;
    Person people[2] = {{"Bob", 40, 0}, {"Ann", 30, 0}};
    Person *it;
    q = p;
    q.x += 2;
    q.y = q.x + 1;
    printf("%d %d %d\n", q.x, q.y, q.x + q.y);
    printf("%d %d\n", area(&r), (int)sizeof(Point));
    q = add(p, p);
    printf("%d %d %d\n", p.x, p.y, add(q, p).x + add(q, p).y - 4);
    w.u = 0x41;
    printf("%d %d\n", w.b[0], (int)(sizeof(union word) == 4));
    printf("%d %d %d %d\n", RED, GREEN, BLUE, VIOLET);
    q = add(add(p, p), p);
    printf("%d %d\n", q.x + 1, q.y);
    people[0].next = &people[1];
    it = people[0].next;
    printf("%s %d\n", it->name, it->age);
}
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
    layouts();
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
