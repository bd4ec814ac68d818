/* General utilities. qsort, bsearch, div and ldiv are written here in VEK C. */
#ifndef __STDLIB_H
#define __STDLIB_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
#ifndef NULL
#define NULL ((void *)0)
#endif
#define EXIT_SUCCESS 0
#define EXIT_FAILURE 1
#define RAND_MAX 32767
typedef struct { int quot; int rem; } div_t;
typedef struct { long quot; long rem; } ldiv_t;
/* Built-in functions: generated from script/builtins.def */
void exit(int status);
int system(const char *command);
char *getenv(const char *name);
int putenv(const char *setting);
void *malloc(size_t size);
void *calloc(size_t count, size_t size);
void *realloc(void *block, size_t size);
void free(void *block);
double atof(const char *s);
int atoi(const char *s);
long atol(const char *s);
double strtod(const char *s, char **end);
long strtol(const char *s, char **end, int base);
unsigned long strtoul(const char *s, char **end, int base);
int rand(void);
void srand(unsigned seed);
int abs(int n);
long labs(long n);
/* End of built-in functions */

static div_t div(int n, int d)
{
    div_t r;
    r.quot = n / d;
    r.rem = n % d;
    return r;
}

static ldiv_t ldiv(long n, long d)
{
    ldiv_t r;
    r.quot = n / d;
    r.rem = n % d;
    return r;
}

static void qsort(void *base, size_t n, size_t size, int (*cmp)(const void *, const void *))
{
    char *b;
    size_t gap, i, j, k;
    char t;
    b = (char *)base;
    for (gap = n / 2; gap > 0; gap /= 2)
        for (i = gap; i < n; i++)
            for (j = i; j >= gap && cmp(b + (j - gap) * size, b + j * size) > 0; j -= gap)
                for (k = 0; k < size; k++) {
                    t = b[(j - gap) * size + k];
                    b[(j - gap) * size + k] = b[j * size + k];
                    b[j * size + k] = t;
                }
}

static void *bsearch(const void *key, const void *base, size_t n, size_t size, int (*cmp)(const void *, const void *))
{
    size_t lo, hi, mid;
    int c;
    lo = 0;
    hi = n;
    while (lo < hi) {
        mid = lo + (hi - lo) / 2;
        c = cmp(key, (const char *)base + mid * size);
        if (c == 0)
            return (char *)base + mid * size;
        if (c < 0)
            hi = mid;
        else
            lo = mid + 1;
    }
    return NULL;
}
#endif
