/* A header with a mistake on its third line. */
int fine;
int broken = ;
