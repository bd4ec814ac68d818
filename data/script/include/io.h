#ifndef __IO_H
#define __IO_H
#define F_OK 0
#define W_OK 2
#define R_OK 4
#endif
