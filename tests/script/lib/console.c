/* The console: getch reads without echo, getche echoes, gets drops the newline and
   answers NULL at the end. Headless there is no screen: clrscr and gotoxy do nothing,
   the cursor stays at 1, 1 and nothing waits to be read ahead. */
#include <stdio.h>
#include <conio.h>
// in: xyz
// in: second
// out: x y !33
// out: z[] [second] 1
// out: cursor 1 1 waiting 0
int main(void)
{
    char first[16], second[16];
    int a, b, bang;
    clrscr();
    gotoxy(10, 5);
    a = getch();
    b = getchar();
    putch(a);
    putchar(' ');
    putch(b);
    putchar(' ');
    bang = putch('!');
    printf("%d\n", bang);
    getche();
    gets(first);
    gets(second);
    printf("[%s] [%s] %d\n", first, second, gets(second) == NULL);
    printf("cursor %d %d waiting %d\n", wherex(), wherey(), kbhit());
    return 0;
}
