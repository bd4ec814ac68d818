/* A table of function pointers driving a tiny stack machine, with switch fallthrough. */
#include <stdio.h>
#include <string.h>

typedef int (*op_fn)(int, int);
static int add(int a, int b) { return a + b; }
static int sub(int a, int b) { return a - b; }
static int mul(int a, int b) { return a * b; }

struct op { char sym; op_fn fn; };
static struct op ops[] = { {'+', add}, {'-', sub}, {'*', mul} };

static int eval(const char *prog)
{
    int stack[16];
    int sp = 0;
    size_t i, k;
    for (i = 0; i < strlen(prog); i++) {
        char ch = prog[i];
        switch (ch) {
        case ' ':
            break;
        case '0': case '1': case '2': case '3': case '4':
        case '5': case '6': case '7': case '8': case '9':
            stack[sp++] = ch - '0';
            break;
        default:
            for (k = 0; k < sizeof ops / sizeof ops[0]; k++)
                if (ops[k].sym == ch) {
                    sp--;
                    stack[sp - 1] = ops[k].fn(stack[sp - 1], stack[sp]);
                }
        }
    }
    return stack[0];
}

int main(void)
{
    printf("%d\n", eval("3 4 + 5 *"));
    printf("%d\n", eval("9 2 3 * -"));
    return 0;
}
