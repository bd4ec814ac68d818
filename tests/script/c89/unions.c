/* Tagged unions, enums as switch labels, and goto for cleanup. */
#include <stdio.h>

enum kind { K_INT, K_REAL, K_TEXT };
struct value {
    enum kind kind;
    union { long i; double r; const char *t; } u;
};

static void show(const struct value *v)
{
    switch (v->kind) {
    case K_INT: printf("int %ld\n", v->u.i); break;
    case K_REAL: printf("real %.2f\n", v->u.r); break;
    case K_TEXT: printf("text %s\n", v->u.t); break;
    }
}

static int parse(int n, struct value *out)
{
    int status = -1;
    if (n < 0)
        goto fail;
    out->kind = (enum kind)(n % 3);
    if (out->kind == K_INT) out->u.i = n * 100L;
    else if (out->kind == K_REAL) out->u.r = n / 4.0;
    else out->u.t = "three";
    status = 0;
fail:
    return status;
}

int main(void)
{
    struct value v;
    int n;
    for (n = -1; n < 3; n++) {
        if (parse(n, &v) != 0) {
            printf("failed %d\n", n);
            continue;
        }
        show(&v);
    }
    printf("%d\n", (int)(sizeof v.u));
    return 0;
}
