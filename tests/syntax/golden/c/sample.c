#include <stdio.h>  /* standard
   input and output */
#define MAX 0x1F // limit

static const char *name = "say \"hi\"\n";
int main(int argc, char **argv) {
	/* one */ int x = -42; /* two
	still comment */ x += 3.5e1;
	if (argc > 1 && argv[1][0] == '/') return 'a';
	for (unsigned long i = 0UL; i < MAX; ++i) printf("%d", x); // done
	return 0;
}
