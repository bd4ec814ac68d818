// Runs every case of tests/engine/cases/ as a test of its own. The first state is
// loaded into a document; keys go through the shipped key map as a window sends
// them, commands straight to the executor, with the headless shell answering; every
// later state, clipboard, message and setting is compared with what the run left.
// The folder's README.md describes the files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <tuple>

#include "app/headless_shell.h"
#include "config/default_keys.h"
#include "config/keymap.h"
#include "engine/command_table.h"
#include "engine/commands/line_draw.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/undo.h"
#include "tests/engine/case_file.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

const fs::path& casesRoot() {
    static const fs::path root = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "engine" / "cases";
    return root;
}

// Settings a case may set and check: global options and flags of the document.
struct Setting {
    const char* name;
    bool EditOptions::*flag = nullptr;
    int EditOptions::*number = nullptr;
    bool Document::*docFlag = nullptr;
};
const Setting kSettings[] = {
    {"tabSize", nullptr, &EditOptions::tabSize},
    {"blockIndent", nullptr, &EditOptions::blockIndent},
    {"wordWrapColumn", nullptr, &EditOptions::wordWrapColumn},
    {"undoLevels", nullptr, &EditOptions::undoLevels},
    {"useTabChar", &EditOptions::useTabChar},
    {"smartTab", &EditOptions::smartTab},
    {"autoIndent", &EditOptions::autoIndent},
    {"autoUnindent", &EditOptions::autoUnindent},
    {"autoIndentUsingTabs", &EditOptions::autoIndentUsingTabs},
    {"overwrite", &EditOptions::overwrite},
    {"cursorBeyondEol", &EditOptions::cursorBeyondEol},
    {"keepTrailingBlanks", &EditOptions::keepTrailingBlanks},
    {"cursorThroughTabs", &EditOptions::cursorThroughTabs},
    {"wordWrap", &EditOptions::wordWrap},
    {"ruler", &EditOptions::ruler},
    {"visibleSpaces", &EditOptions::visibleSpaces},
    {"lineNumbers", &EditOptions::lineNumbers},
    {"doc.modified", nullptr, nullptr, &Document::modified},
    {"doc.wordWrap", nullptr, nullptr, &Document::wordWrap},
    {"doc.lineDrawing", nullptr, nullptr, &Document::lineDrawing},
};

std::string settingValue(const Setting& s, const Document& doc) {
    if (s.number) return std::to_string(options().*s.number);
    return (s.flag ? options().*s.flag : doc.*s.docFlag) ? "on" : "off";
}

// The value as settingValue writes it, or nullopt when it does not fit the setting.
std::optional<std::string> canonicalValue(const Setting& s, std::string_view value) {
    if (!s.number) return value == "on" || value == "off" ? std::optional<std::string>(value) : std::nullopt;
    const bool digits = !value.empty() && value.find_first_not_of("0123456789") == std::string_view::npos;
    return digits ? std::optional<std::string>(std::to_string(std::stoi(std::string(value)))) : std::nullopt;
}

void setSetting(const Setting& s, const std::string& value, Document& doc) {
    if (s.number == &EditOptions::tabSize) setTabSize(std::stoi(value));
    else if (s.number) options().*s.number = std::stoi(value);
    else (s.flag ? options().*s.flag : doc.*s.docFlag) = value == "on";
}

// "Backspace*3": the word and how often.
std::pair<std::string, int> repeated(const std::string& token) {
    const size_t star = token.rfind('*');
    if (star == std::string::npos || star == 0 || token.find_first_not_of("0123456789", star + 1) != std::string::npos ||
        star + 1 == token.size())
        return {token, 1};
    return {token.substr(0, star), std::stoi(token.substr(star + 1))};
}

bool quoted(const std::string& token) {
    return token.size() >= 2 && (token[0] == '"' || token[0] == '\'') && token.back() == token[0];
}

// The bytes of a quoted text or character.
std::optional<std::string> unquote(const std::string& token, std::string& error) {
    return decodeText(std::string_view(token).substr(1, token.size() - 2), error);
}

// A set: or check: word "name=value": its setting, and the value as settingValue
// writes it; nullptr when the name is none of kSettings or the value does not fit.
const Setting* assignment(std::string_view token, std::string& value) {
    const size_t eq = token.find('=');
    for (const Setting& s : kSettings) {
        if (eq == std::string_view::npos || token.substr(0, eq) != s.name) continue;
        const std::optional<std::string> v = canonicalValue(s, token.substr(eq + 1));
        if (v) value = *v;
        return v ? &s : nullptr;
    }
    return nullptr;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) out.push_back(line);
    return out;
}

// The actual state under the expected one; lines that differ are flagged with "!".
std::string mismatch(const std::string& expected, const std::string& actual) {
    const std::vector<std::string> want = linesOf(expected), got = linesOf(actual);
    std::string out = "expected:\n";
    for (const std::string& l : want) out += "    " + l + "\n";
    out += "actual:\n";
    for (size_t i = 0; i < got.size(); ++i) out += (i < want.size() && want[i] == got[i] ? "    " : "  ! ") + got[i] + "\n";
    return out;
}

// Width and height of a column block with these rows.
std::pair<uint32_t, uint32_t> blockSize(const std::string& text) {
    const size_t rowEnd = text.find("\r\n");
    uint32_t height = 1;
    for (size_t at = rowEnd; at != std::string::npos; at = text.find("\r\n", at + 2)) ++height;
    return {static_cast<uint32_t>(rowEnd == std::string::npos ? text.size() : rowEnd), height};
}

std::string clipboardLine(const ClipboardData& clip) {
    if (!clip.hasColumnBlock) return "clipboard: " + encodeText(clip.text) + "\n";
    // A column block's size follows from its rows; it is written only when it does not.
    std::string size;
    if (blockSize(clip.text) != std::pair(clip.blockWidth, clip.blockHeight))
        size = " (" + std::to_string(clip.blockWidth) + " x " + std::to_string(clip.blockHeight) + ")";
    return "column clipboard: " + encodeText(clip.text) + size + "\n";
}

ClipboardData clipboardOf(const std::string& keyword, const std::string& text) {
    ClipboardData clip{text, keyword == "column clipboard", 0, 0};
    if (clip.hasColumnBlock) std::tie(clip.blockWidth, clip.blockHeight) = blockSize(text);
    return clip;
}

class CaseRun {
public:
    explicit CaseRun(fs::path file) : file_(std::move(file)) {
        resetGlobals();
        setShell(&shell_);
    }
    ~CaseRun() {
        setShell(nullptr);
        resetGlobals();
        std::fclose(out_);
        std::free(outBuffer_);
    }
    CaseRun(const CaseRun&) = delete;
    CaseRun& operator=(const CaseRun&) = delete;

    void run(const Case& c);

private:
    // The options and the line-drawing state are the program's: each case starts afresh.
    static void resetGlobals() {
        options() = EditOptions{};
        lineDrawState() = LineDrawState{};
    }
    bool fail(int line, const std::string& why) {
        ADD_FAILURE_AT(file_.c_str(), line) << why;
        return false;
    }
    bool prepare(const CaseLine& l);
    bool act(const CaseLine& l);
    bool press(const std::string& token, int line);
    bool command(const std::vector<std::string>& tokens, size_t& i, int line);
    bool follow(const std::vector<std::string>& tokens, int line);
    bool type(const std::string& quoted, bool throughKeys, int line);
    bool set(const CaseLine& l);
    bool checkpoint(const std::vector<const CaseLine*>& checks);
    bool expect(const CaseLine& l, std::string& expected, std::string& actual, std::string& error);
    bool expectSettings(const CaseLine& l, std::string& expected, std::string& actual, std::string& error);
    std::vector<std::string> newMessages();

    fs::path file_;
    char* outBuffer_ = nullptr;
    size_t outSize_ = 0;
    std::FILE* out_ = open_memstream(&outBuffer_, &outSize_);
    size_t messagesRead_ = 0;
    HeadlessShell shell_{out_};
    Document doc_;
    KeyMap keys_ = defaultKeyMap();
    uint16_t pending_ = 0;
    bool loaded_ = false;
    std::optional<std::vector<Pos>> trail_;  // stops of the last trail, shown instead of the cursor
};

void CaseRun::run(const Case& c) {
    std::vector<const CaseLine*> checks;
    bool acted = false, unchecked = false;
    for (const CaseLine& l : c.lines) {
        const bool action = l.keyword == "keys" || l.keyword == "do" || l.keyword == "trail";
        if (action || l.keyword == "set") {
            if (!checks.empty() && !checkpoint(checks)) return;
            checks.clear();
            if (!(action ? act(l) : set(l))) return;
            acted = acted || action;
            unchecked = unchecked || action;
        } else if (!acted) {
            if (!prepare(l)) return;
        } else {
            checks.push_back(&l);
            unchecked = false;
        }
    }
    if (!checks.empty() && !checkpoint(checks)) return;
    if (!acted) fail(c.number, "the case has no keys or commands");
    else if (unchecked) fail(c.lines.back().number, "the case ends with actions whose result it does not show");
}

bool CaseRun::prepare(const CaseLine& l) {
    std::string error;
    if (l.keyword == "|") {
        const std::optional<MarkedText> m = parseMarked(l.block, options().tabSize, 1, error);
        if (!m) return fail(l.number, error);
        loadMarked(doc_, *m);
        loaded_ = true;
        return true;
    }
    if (l.keyword == "clipboard" || l.keyword == "column clipboard") {
        const std::optional<std::string> text = decodeText(l.value, error);
        if (!text) return fail(l.number, error);
        shell_.setClipboard(clipboardOf(l.keyword, *text));
        return true;
    }
    return fail(l.number, l.keyword + ": comes after the keys or commands it checks");
}

bool CaseRun::act(const CaseLine& l) {
    if (!loaded_) return fail(l.number, "a case starts with the document's state");
    trail_.reset();
    const std::vector<std::string> tokens = splitTokens(l.value);
    if (l.keyword == "trail") return follow(tokens, l.number);
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!(l.keyword == "keys" ? press(tokens[i], l.number) : command(tokens, i, l.number))) return false;
    }
    return true;
}

// A key name, or a quoted text typed character by character.
bool CaseRun::press(const std::string& token, int line) {
    if (quoted(token)) return type(token, true, line);
    const auto [name, times] = repeated(token);
    const uint16_t key = parseKeyName(name);
    if (!key) return fail(line, "no key is named \"" + name + "\"");
    for (int n = 0; n < times; ++n) {
        const uint16_t id = keyCommand(keys_, doc_, key, pending_);
        if (id) execute(doc_, id);
    }
    return true;
}

// A command name with its parameter, if it takes one, or a quoted text to insert.
bool CaseRun::command(const std::vector<std::string>& tokens, size_t& i, int line) {
    if (quoted(tokens[i])) return type(tokens[i], false, line);
    const auto [name, times] = repeated(tokens[i]);
    const CommandRecord* rec = findCommand(name);
    if (!rec) return fail(line, "no command is named \"" + name + "\"");
    uint32_t param = 0;
    if (rec->kind == ParamKind::Char || rec->kind == ParamKind::Number) {
        if (++i == tokens.size()) return fail(line, name + " takes a parameter");
        const std::string& p = tokens[i];
        std::string error;
        const std::optional<std::string> c = quoted(p) ? unquote(p, error) : std::nullopt;
        if (c && c->size() == 1) param = static_cast<unsigned char>((*c)[0]);
        else if (p.find_first_not_of("0123456789") == std::string::npos) param = static_cast<uint32_t>(std::stoul(p));
        else return fail(line, "\"" + p + "\" is no parameter: write a number or a character in quotes");
    }
    for (int n = 0; n < times; ++n) execute(doc_, rec->id, param);
    return true;
}

// Runs one command until the cursor stops moving or leaves its line, noting each stop.
bool CaseRun::follow(const std::vector<std::string>& tokens, int line) {
    constexpr int kMaxStops = 200;
    const int32_t startLine = doc_.cursor.line;
    trail_.emplace();
    for (int n = 0; n < kMaxStops; ++n) {
        const Pos before = doc_.cursor;
        size_t i = 0;
        if (!command(tokens, i, line)) return false;
        if (i + 1 != tokens.size()) return fail(line, "a trail follows one command");
        if (doc_.cursor == before || doc_.cursor.line != startLine) return true;
        trail_->push_back(doc_.cursor);
    }
    return fail(line, "the cursor never stops");
}

// A quoted text typed character by character: through the key map as a window types
// it, or as InsertChar.
bool CaseRun::type(const std::string& quoted, bool throughKeys, int line) {
    std::string error;
    const std::optional<std::string> text = unquote(quoted, error);
    if (!text) return fail(line, error);
    const uint16_t insertChar = findCommand("InsertChar")->id;
    for (char c : *text) {
        const auto byte = static_cast<unsigned char>(c);
        const uint16_t id = throughKeys ? keyCommand(keys_, doc_, byte, pending_) : insertChar;
        if (id) execute(doc_, id, id == insertChar ? byte : 0);
    }
    return true;
}

bool CaseRun::set(const CaseLine& l) {
    for (const std::string& token : splitTokens(l.value)) {
        std::string value;
        const Setting* s = assignment(token, value);
        if (!s) return fail(l.number, "\"" + token + "\" sets nothing: write name=value, on or off or a number");
        setSetting(*s, value, doc_);
    }
    return true;
}

bool CaseRun::checkpoint(const std::vector<const CaseLine*>& checks) {
    std::string expected, actual, error, messages;
    for (const CaseLine* l : checks) {
        if (l->keyword == "message") messages += "message: " + l->value + "\n";
        else if (!expect(*l, expected, actual, error)) return fail(l->number, error);
    }
    expected += messages;
    for (const std::string& m : newMessages()) actual += "message: " + m + "\n";
    if (expected == actual) return true;
    return fail(checks.front()->number, mismatch(expected, actual));
}

bool CaseRun::expect(const CaseLine& l, std::string& expected, std::string& actual, std::string& error) {
    if (l.keyword == "check") return expectSettings(l, expected, actual, error);
    if (l.keyword == "|") {
        const std::optional<MarkedText> m = parseMarked(l.block, options().tabSize, trail_ ? -1 : 1, error);
        if (!m) return false;
        MarkedText now = markedOf(doc_);
        if (trail_) now.cursors = *trail_;
        expected += renderMarked(*m, options().tabSize);
        actual += renderMarked(now, options().tabSize);
        return true;
    }
    const std::optional<std::string> text = decodeText(l.value, error);
    if (!text) return false;
    expected += clipboardLine(clipboardOf(l.keyword, *text));
    actual += clipboardLine(shell_.getClipboard());
    return true;
}

// name=value pairs, and undo="label" for the Undo menu item.
bool CaseRun::expectSettings(const CaseLine& l, std::string& expected, std::string& actual, std::string& error) {
    for (const std::string& token : splitTokens(l.value)) {
        if (token.starts_with("undo=\"") && quoted(token.substr(5))) {
            expected += "check: " + token + "\n";
            actual += "check: undo=\"" + std::string(undoLabel(doc_.undo)) + "\"\n";
            continue;
        }
        std::string want;
        const Setting* s = assignment(token, want);
        if (!s) {
            error = "\"" + token + "\" checks nothing: write name=value or undo=\"label\"";
            return false;
        }
        expected += "check: " + std::string(s->name) + "=" + want + "\n";
        actual += "check: " + std::string(s->name) + "=" + settingValue(*s, doc_) + "\n";
    }
    return true;
}

// Message boxes shown since the last call, as the headless shell printed them.
std::vector<std::string> CaseRun::newMessages() {
    std::fflush(out_);
    const std::string printed(outBuffer_ + messagesRead_, outSize_ - messagesRead_);
    messagesRead_ = outSize_;
    std::vector<std::string> out;
    for (std::string& line : linesOf(printed)) out.push_back(line.starts_with("zolder: ") ? line.substr(8) : line);
    return out;
}

struct CaseId {
    std::string file;  // below the cases folder
    Case kase;
    std::string error;  // why the file could not be read
};

void PrintTo(const CaseId& id, std::ostream* os) { *os << id.file << ": " << id.kase.name; }

std::vector<CaseId> allCases() {
    std::vector<std::string> files;
    for (const auto& e : fs::recursive_directory_iterator(casesRoot()))
        if (e.path().extension() == ".case") files.push_back(fs::relative(e.path(), casesRoot()).string());
    std::sort(files.begin(), files.end());
    std::vector<CaseId> ids;
    for (const std::string& f : files) {
        std::string error;
        const std::optional<std::vector<Case>> cases = readCases((casesRoot() / f).string(), error);
        if (!cases) ids.push_back({f, Case{"unreadable", 0, {}}, error});
        for (size_t i = 0; cases && i < cases->size(); ++i) ids.push_back({f, (*cases)[i], ""});
    }
    return ids;
}

std::string testName(const ::testing::TestParamInfo<CaseId>& info) {
    const std::string words = fs::path(info.param.file).replace_extension().string() + " " + info.param.kase.name;
    std::string name;
    for (char c : words) {
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
        else if (!name.empty() && name.back() != '_') name += '_';
    }
    while (!name.empty() && name.back() == '_') name.pop_back();
    return name;
}

class CaseFile : public ::testing::TestWithParam<CaseId> {};

TEST_P(CaseFile, Runs) {
    const CaseId& id = GetParam();
    if (!id.error.empty()) GTEST_FAIL() << id.error;
    CaseRun(casesRoot() / id.file).run(id.kase);
}

INSTANTIATE_TEST_SUITE_P(Cases, CaseFile, ::testing::ValuesIn(allCases()), testName);

}  // namespace
}  // namespace zol::test
