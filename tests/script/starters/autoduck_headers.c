/* The starter script autoduck above a one-line header, a header over three lines
   (with a comment, a function pointer, a default value and "..."), a void function
   without parameters and an indented Java method; the cursor ends on the @func
   line. A line that is no header is refused and left alone. */
#define main StarterMain
#include "../../../data/script/autoduck.c"
#undef main
#include <stdio.h>
// doc: code.cpp
// | static const char *name(int id, unsigned long flags[])
// | {
// | }
// | int Sort(void *base,   // the items
// |          int (*compare)(const void *, const void *),
// |          size_t count = 0, ...)
// | void reset(void)
// | class Job {
// |     @Override public void run()
// |     count = total(a, b);
// | }
// doc-after: code.cpp
// | /*
// |  * @func const char * | name |
// |  *
// |  * @parm int | id |
// |  * @parm unsigned long[] | flags |
// |  *
// |  * @rdesc
// |  */
// | static const char *name(int id, unsigned long flags[])
// | {
// | }
// | /*
// |  * @func int | Sort |
// |  *
// |  * @parm void * | base |
// |  * @parm int (*)(const void *, const void *) | compare |
// |  * @parm size_t | count |
// |  * @parmvar
// |  *
// |  * @rdesc
// |  */
// | int Sort(void *base,   // the items
// |          int (*compare)(const void *, const void *),
// |          size_t count = 0, ...)
// | /*
// |  * @func void | reset |
// |  */
// | void reset(void)
// | class Job {
// |     /*
// |      * @func void | run |
// |      */
// |     @Override public void run()
// |     count = total(a, b);
// | }
// out: 0 26,10 0 0 0 1 at 5,34
// stderr: zolder: The cursor is not on the header of a function.
int main(void)
{
   HDOC h = Zol_GetActiveDocument();
   int nCol, nLine;

   /* From the bottom up, so that the lines above keep their numbers. */
   Zol_SetCursorPos(h, 3, 9, FALSE);
   printf("%d", StarterMain());
   Zol_GetCursorPos(h, &nCol, &nLine);
   printf(" %d,%d", nCol, nLine);
   Zol_SetCursorPos(h, 1, 7, FALSE);
   printf(" %d", StarterMain());
   Zol_SetCursorPos(h, 1, 4, FALSE);
   printf(" %d", StarterMain());
   Zol_SetCursorPos(h, 1, 1, FALSE);
   printf(" %d", StarterMain());
   Zol_SetCursorPos(h, 5, 34, FALSE);
   printf(" %d", StarterMain());
   Zol_GetCursorPos(h, &nCol, &nLine);
   printf(" at %d,%d\n", nCol, nLine);
   return 0;
}
