/* hello.c: a small sample to try the editor on. */
#include <stdio.h>

static int square(int n)
{
	return n * n;
}

int main(void)
{
	int i;

	for (i = 1; i <= 10; i++)
		printf("%2d squared is %3d\n", i, square(i));
	return 0;
}
