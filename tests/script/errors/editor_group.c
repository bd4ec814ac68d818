/* The editor and operating-system built-ins are not available to this runner yet. */
// error: editor_group.c Line 5: Call to undefined function
int main(void)
{
    return Zol_GetTabSize();
}
