# Build rules
CC = gcc
CFLAGS := -O2 -Wall
objs = $(patsubst %.c,%.o,$(wildcard *.c))
ifeq ($(DEBUG),1)
CFLAGS += -g
endif
all: prog
prog: $(objs)
	$(CC) -o $@ $^
