/* The starter script unhtml on a whole document: nested tags, tags over two lines,
   comments, script and style contents and references go; "a < b", a "<" that
   never closes, an unterminated comment, references outside Windows-1252 and one
   without its ";" stay. Then on a selection only, the rest of the line untouched. */
#define main StarterMain
#include "../../../data/script/unhtml.c"
#undef main
#include <stdio.h>
// doc: page.html
// | <html><head><style>p { color: red; }</style>
// | <script type="text/javascript">if (a < b) document.write("<p>");</script></head>
// | <body><!-- a comment
// | over two lines --><p class="a>b">Fish &amp; <b><i>chips</i></b> &lt;3&gt;</p>
// | <p>&quot;Caf&#233;&quot; &#x27;&#8364;&apos; &#150; &#X41;&nbsp;&#65</p>
// | if a < b and c<d, <b
// | >bold</b> &#x4E2D; &#0; &bogus; <!-- open
// | </body></html>
// doc-after: page.html
// |
// |
// | Fish & chips <3>
// | ### REFERENCES ###
// | if a < b and c<d, bold &#x4E2D; &#0; &bogus; <!-- open
// |
// doc: part.html
// | keep <b>this</b> &amp; <i>that</i>
// doc-after: part.html
// | keep this & <i>that</i>
// out: page 0 part 0
// out: "Caf\xe9" '\x80' \x96 A\xa0&#65
int main(void)
{
   HDOC hPage = Zol_GetFirstDocument(), hPart = Zol_GetLastDocument();
   char szLine[100], *p;

   Zol_SetActiveDocument(hPage);
   printf("page %d", StarterMain());

   Zol_SetActiveDocument(hPart);
   Zol_SetCursorPos(hPart, 6, 1, FALSE);
   Zol_SetCursorPos(hPart, 24, 1, TRUE);
   printf(" part %d\n", StarterMain());

   /* The decoded characters are Windows-1252 bytes; shown here, the line is replaced
      by a marker so that doc-after stays plain ASCII. */
   Zol_GetLine(hPage, 4, szLine, sizeof szLine);
   for (p = szLine; *p; p++)
      printf((unsigned char)*p < 128 ? "%c" : "\\x%02x", (unsigned char)*p);
   printf("\n");
   Zol_SetLine(hPage, 4, "### REFERENCES ###");
   return 0;
}
