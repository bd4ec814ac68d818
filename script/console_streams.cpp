// The console of a run without windows: the C streams it was given.
#include "script/console.h"

namespace zol {
namespace {

class StreamConsole final : public ScriptConsole {
public:
    StreamConsole(FILE* in, FILE* out, FILE* err) : files_{in, out, err} {}

    bool write(ConsoleStream stream, std::string_view text) override {
        FILE* f = file(stream);
        return text.empty() || (f && std::fwrite(text.data(), 1, text.size(), f) == text.size());
    }
    void flush() override {
        for (FILE* f : {file(ConsoleStream::Out), file(ConsoleStream::Err)})
            if (f) std::fflush(f);
    }
    int readChar() override { return in() ? std::fgetc(in()) : EOF; }
    bool unreadChar(int c) override { return in() && std::ungetc(c, in()) != EOF; }
    int readKey(bool echo) override {
        const int c = readChar();
        if (echo && c != EOF && file(ConsoleStream::Out)) std::fputc(c, file(ConsoleStream::Out));
        return c;
    }
    bool keyWaiting() override { return false; }
    void clear() override {}
    void gotoXY(int, int) override {}
    int whereX() override { return 1; }
    int whereY() override { return 1; }
    void pause(std::string_view prompt) override {
        write(ConsoleStream::Out, prompt);
        flush();
        readChar();
    }
    FILE* hostFile(ConsoleStream stream) override { return file(stream); }

private:
    FILE* file(ConsoleStream s) const { return files_[static_cast<int>(s)]; }
    FILE* in() const { return file(ConsoleStream::In); }
    FILE* files_[3];
};

}  // namespace

std::unique_ptr<ScriptConsole> makeStreamConsole(FILE* in, FILE* out, FILE* err) {
    return std::make_unique<StreamConsole>(in, out, err);
}

}  // namespace zol
