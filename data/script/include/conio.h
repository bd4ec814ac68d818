/* Console calls; headless, the console is the process's standard input and output. */
#ifndef __CONIO_H
#define __CONIO_H
#endif
