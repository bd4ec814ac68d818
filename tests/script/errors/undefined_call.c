/* A call of a name that neither the script nor the library defines. */
// error: undefined_call.c Line 5: Call to undefined function
int main(void)
{
    return no_such_function(1);
}
