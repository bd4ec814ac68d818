/* A linked queue with malloc, pointers to pointers and a typedef'd struct. */
#include <stdio.h>
#include <stdlib.h>

typedef struct node {
    int value;
    struct node *next;
} node;

static void push(node **head, int v)
{
    node **p = head;
    while (*p)
        p = &(*p)->next;
    *p = (node *)malloc(sizeof(node));
    (*p)->value = v;
    (*p)->next = NULL;
}

static int pop(node **head)
{
    node *n = *head;
    int v = n->value;
    *head = n->next;
    free(n);
    return v;
}

int main(void)
{
    node *q = NULL;
    int i, sum = 0;
    for (i = 1; i <= 10; i++)
        push(&q, i * i);
    while (q)
        sum += pop(&q);
    printf("sum of squares: %d\n", sum);
    return 0;
}
