#define SQUARE(v) ((v) * (v))
