/* Non-local jumps: setjmp and longjmp belong to the language. */
#ifndef __SETJMP_H
#define __SETJMP_H
typedef char jmp_buf[__JBUFSIZE__];
#endif
