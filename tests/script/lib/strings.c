/* String and memory functions, including the non-standard ones of the table. */
#include <stdio.h>
#include <string.h>
// out: 5 0 -1 1 0
// out: [hello, world] [hello] [hel]
// out: [llo, world] [lo] [world] 2 3 [, world]
// out: [a] [b] [c]
// out: [ABC] [abc] 0 0 [cba]
// out: [xxxx] [yyc] [trim] [trim  ] [  trim]
// out: 1 [abcabc] 0
int main(void)
{
    char buf[32], t[32], *tok;
    strcpy(buf, "hello");
    printf("%d %d %d %d %d\n", (int)strlen(buf), strcmp("a", "a"), strcmp("a", "b"), strcmp("b", "a"), strncmp("abc", "abd", 2));
    strcpy(t, buf);
    strcat(buf, ", world");
    strncpy(t + 3, "", 1);
    printf("[%s] [%.5s] [%s]\n", buf, buf, t);
    printf("[%s] [%s] [%s] %d %d [%s]\n", strchr(buf, 'l'), strrchr("hello", 'l'), strstr(buf, "wor"),
           (int)strspn("aab", "a"), (int)strcspn("abcd", "d"), strpbrk(buf, ",;"));
    strcpy(t, "a,b;;c");
    for (tok = strtok(t, ",;"); tok; tok = strtok(NULL, ",;"))
        printf(tok[0] == 'c' ? "[%s]\n" : "[%s] ", tok);
    strcpy(t, "abc");
    printf("[%s] ", strupr(t));
    printf("[%s] %d %d ", strlwr(t), stricmp("ABC", "abc"), strnicmp("ABx", "aby", 2));
    printf("[%s]\n", strrev(t));
    strcpy(t, "abcd");
    printf("[%s] ", strset(t, 'x'));
    strcpy(t, "abc");
    printf("[%s] ", strnset(t, 'y', 2));
    strcpy(t, "  trim  ");
    strcpy(buf, t);
    printf("[%s] [%s] ", strtrim(t), strltrim(buf));
    strcpy(buf, "  trim  ");
    printf("[%s]\n", strrtrim(buf));
    memset(t, 0, sizeof t);
    memcpy(t, "abc", 3);
    memmove(t + 3, t, 3);
    printf("%d [%s] %d\n", memcmp(t, "abcab", 5) == 0, t, memchr(t, 'z', 6) != NULL);
    return 0;
}
