/* Building and scanning strings with the standard functions. */
#include <stdio.h>
#include <string.h>
#include <ctype.h>

static void reverse_words(char *s)
{
    char *words[16];
    int n = 0;
    char *w = strtok(s, " ");
    while (w) {
        words[n++] = w;
        w = strtok(NULL, " ");
    }
    while (n--)
        printf("%s%s", words[n], n ? " " : "\n");
}

int main(void)
{
    char buf[64];
    char out[64];
    int i, vowels = 0;
    sprintf(buf, "%s-%d-%c", "item", 42, 'z');
    printf("%s %d\n", buf, (int)strlen(buf));
    strcpy(out, "The quick brown fox");
    for (i = 0; out[i]; i++)
        if (strchr("aeiou", tolower(out[i])))
            vowels++;
    printf("vowels %d\n", vowels);
    reverse_words(out);
    printf("%d %d\n", strcmp("abc", "abd") < 0, strncmp("abcdef", "abcxyz", 3));
    return 0;
}
