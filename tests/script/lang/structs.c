/* Structs, unions, enums and typedefs: layout, assignment, passing and returning. */
#include <stdio.h>
// out: 3 4 7
// out: 12 8
// out: 1 2 5
// out: 65 1
// out: 0 1 5 6
// out: 4 6
// out: Ann 30
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

int main(void)
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
    return 0;
}
