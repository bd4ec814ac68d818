// Fontconfig keeps its caches until the process ends; the leak checker of the
// sanitizer build is told so, and finds our own leaks as before.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
