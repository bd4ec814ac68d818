/* Files: writing, reading back by line, by character and by block, seeking, renaming
   and removing; a temporary file. */
#include <stdio.h>
#include <string.h>
// out: wrote 3
// out: [alpha 1]
// out: [beta 2]
// out: chars 16 eof 1
// out: seek 1 tell 6
// out: block 5 [gamma]
// out: renamed 0 gone 1
// out: tmp 42
int main(void)
{
    FILE *f;
    char line[32], blk[8];
    int c, n = 0, v;
    f = fopen("vekc_test.txt", "w");
    if (!f) return 1;
    fprintf(f, "alpha %d\n", 1);
    fputs("beta 2\n", f);
    fputc('!', f);
    fclose(f);
    printf("wrote %d\n", 3);
    f = fopen("vekc_test.txt", "r");
    while (fgets(line, sizeof line, f)) {
        if (line[0] == '!') break;
        line[strlen(line) - 1] = 0;
        printf("[%s]\n", line);
    }
    rewind(f);
    while ((c = fgetc(f)) != EOF) n++;
    printf("chars %d eof %d\n", n, feof(f) != 0);
    fseek(f, 6, SEEK_SET);
    c = fgetc(f);
    ungetc(c, f);
    printf("seek %c tell %ld\n", fgetc(f), ftell(f) - 1);
    fclose(f);
    f = fopen("vekc_test.txt", "wb");
    fwrite("gamma", 1, 5, f);
    fclose(f);
    f = fopen("vekc_test.txt", "rb");
    n = fread(blk, 1, sizeof blk, f);
    blk[n] = 0;
    fclose(f);
    printf("block %d [%s]\n", n, blk);
    printf("renamed %d gone %d\n", rename("vekc_test.txt", "vekc_test2.txt"), fopen("vekc_test.txt", "r") == NULL);
    remove("vekc_test2.txt");
    f = tmpfile();
    fprintf(f, "%d", 42);
    rewind(f);
    fscanf(f, "%d", &v);
    fclose(f);
    printf("tmp %d\n", v);
    return 0;
}
