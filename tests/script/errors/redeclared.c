/* Declaring a function with two different types. */
// error: redeclared.c Line 4: Function redeclaration error
int f(int);
double f(int x) { return x; }
int main(void) { return 0; }
