/* The thirty-first nested conditional is refused: the report names its line, so the
   thirty around it were allowed. */
// error: ifs_31.c Line 34: Limitation: too many nested #ifs
#if 1
#if 2
#if 3
#if 4
#if 5
#if 6
#if 7
#if 8
#if 9
#if 10
#if 11
#if 12
#if 13
#if 14
#if 15
#if 16
#if 17
#if 18
#if 19
#if 20
#if 21
#if 22
#if 23
#if 24
#if 25
#if 26
#if 27
#if 28
#if 29
#if 30
#if 31
int depth = 31;
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
#endif
int main(void) { return depth; }
