/* Console calls; headless, the console is the process's standard input and output. */
#ifndef __CONIO_H
#define __CONIO_H
/* Built-in functions: generated from script/builtins.def */
int getch(void);
int putch(int c);
int getche(void);
int kbhit(void);
void clrscr(void);
void gotoxy(int x, int y);
int wherex(void);
int wherey(void);
/* End of built-in functions */
#endif
