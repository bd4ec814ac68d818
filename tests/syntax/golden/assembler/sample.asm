; add two numbers
%define SIZE 16
section .text
global _start
_start:
    mov eax, 0x10      ; first
    add eax, 5
    int 80h
msg db "done", 10
