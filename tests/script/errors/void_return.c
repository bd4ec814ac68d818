/* A value returned from a void function is reported with error 73, as the table has it. */
// error: void_return.c Line 5: Function redeclaration error
void f(void)
{
    return 1;
}
int main(void) { f(); return 0; }
