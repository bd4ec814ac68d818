/* Text that runs to the end of its array without a terminating zero is refused, and
   nothing of it reaches the document. */
#include <string.h>
#include <editor/doc.h>
// doc: lines.txt
// | text
// error: unterminated_text.c Line 14: Illegal use of pointer
// doc-after: lines.txt
// | text
int main(void)
{
    char s[3];
    memcpy(s, "abc", 3);
    return Zol_InsertText(Zol_GetActiveDocument(), s);
}
