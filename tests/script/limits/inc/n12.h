#define DEEPEST 12
