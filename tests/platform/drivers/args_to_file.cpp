// args_to_file FILE ARG...: writes each ARG on a line of its own into FILE, whole or
// not at all (through FILE.part), so that a test sees the words a program was given.
#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const std::string part = std::string(argv[1]) + ".part";
    FILE* f = std::fopen(part.c_str(), "w");
    if (!f) return 1;
    for (int i = 2; i < argc; ++i) std::fprintf(f, "%s\n", argv[i]);
    if (std::fclose(f) != 0) return 1;
    return std::rename(part.c_str(), argv[1]) == 0 ? 0 : 1;
}
