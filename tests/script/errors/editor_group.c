/* An editor built-in called with fewer arguments than its prototype has. */
// error: editor_group.c Line 5: Argument mismatch error
int main(void)
{
    return Zol_GetLineLen(Zol_GetActiveDocument(), 1);
}
