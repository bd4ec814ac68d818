#include "proofing/spell_session.h"

#include <algorithm>

#include "config/settings.h"
#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/text_util.h"
#include "engine/words.h"
#include "proofing/speller.h"

namespace zol {
namespace {

size_t offsetOfColumn(const Document& doc, Pos p) {
    return locateColumn(lineText(doc, p.line), p.col).offset;
}

}  // namespace

SpellSession::SpellSession(Document& doc, Speller& speller) : doc_(doc), speller_(speller), regions_(doc) {
    rules_.ignoreUppercase = settings().spelling.ignoreUppercase;
    Pos from, to;
    if (selectionRange(doc, from, to)) {
        line_ = from.line;
        offset_ = offsetOfColumn(doc, from);
        stopLine_ = to.line;
        stopOffset_ = offsetOfColumn(doc, to);
        linesTotal_ = to.line - from.line + 1;
        return;
    }
    // A word the cursor stands in is checked whole.
    line_ = doc.cursor.line;
    const std::string_view text = lineText(doc, line_);
    const size_t at = std::min(offsetOfColumn(doc, doc.cursor), text.size());
    size_t begin = at, end = at;
    offset_ = wordAt(text, at, begin, end) ? begin : at;
    wrap_ = line_ > 0 || offset_ > 0;
    stopLine_ = wrap_ ? line_ : lastLine(doc);
    stopOffset_ = wrap_ ? offset_ : std::string::npos;
    linesTotal_ = doc.lines.count() + (wrap_ ? 1 : 0);
}

SpellStep SpellSession::next(Misspelling& found, size_t budget) {
    size_t read = 0;
    for (;;) {
        const bool lastPhase = !wrap_ || wrapped_;
        const int32_t endLine = lastPhase ? stopLine_ : lastLine(doc_);
        if (line_ > endLine) {
            if (lastPhase) return SpellStep::Finished;
            wrapped_ = true;
            line_ = 0;
            offset_ = 0;
            continue;
        }
        if (read >= budget) return SpellStep::Paused;
        const std::string_view text = lineText(doc_, line_);
        const size_t limit = lastPhase && line_ == stopLine_ ? stopOffset_ : text.size();
        bool changed = false;
        for (const WordSpan& w : proseWords(text, regions_.mask(doc_, line_).data(), rules_)) {
            if (w.begin < offset_) continue;
            if (w.begin >= limit) break;
            std::string word(text.substr(w.begin, w.end - w.begin));
            if (auto it = changeAll_.find(word); it != changeAll_.end()) {
                const std::string repl = it->second;
                if (replace(line_, w.begin, w.end, repl)) {
                    offset_ = w.begin + repl.size();
                    changed = true;
                    break;
                }
            }
            if (!speller_.correct(word)) {
                found = Misspelling{line_, w.begin, w.end, std::move(word)};
                offset_ = w.begin;
                return SpellStep::Found;
            }
        }
        if (changed) continue;  // the line's words moved: read it again from offset_
        read += text.size() + 1;
        ++line_;
        offset_ = 0;
        ++linesDone_;
    }
}

void SpellSession::ignore(const Misspelling& m) { offset_ = m.end; }

void SpellSession::ignoreAll(const Misspelling& m) {
    speller_.ignore(m.word);
    offset_ = m.end;
}

bool SpellSession::addToDictionary(const Misspelling& m) {
    offset_ = m.end;
    return speller_.add(m.word);
}

bool SpellSession::change(const Misspelling& m, const std::string& replacement) {
    if (!replace(m.line, m.begin, m.end, replacement)) return false;
    offset_ = m.begin + replacement.size();
    return true;
}

bool SpellSession::changeAll(const Misspelling& m, const std::string& replacement) {
    if (!change(m, replacement)) return false;
    changeAll_[m.word] = replacement;
    return true;
}

// Every change of the run folds into one undo record holding the changed span of lines
// as it was before the run, so that one Undo gives it all back.
bool SpellSession::replace(int32_t line, size_t begin, size_t end, const std::string& replacement) {
    const std::string old(lineText(doc_, line));
    const std::string now = old.substr(0, begin) + replacement + old.substr(end);
    if (now == old) return true;
    UndoStacks& u = doc_.undo;
    const bool continuing = groupFirst_ >= 0 && u.undo.size() == groupDepth_ && !u.undo.empty() &&
                            u.undo.back().kind == UndoKind::Spelling;
    int32_t first = line;
    std::vector<std::string> original{old};
    if (continuing) {
        // Lines between the span and this one are still as they were.
        const int32_t last = groupFirst_ + static_cast<int32_t>(groupOriginal_.size()) - 1;
        first = std::min(line, groupFirst_);
        original.clear();
        for (int32_t i = first; i <= std::max(line, last); ++i) {
            if (i >= groupFirst_ && i <= last) original.push_back(groupOriginal_[static_cast<size_t>(i - groupFirst_)]);
            else if (i == line) original.push_back(old);
            else original.emplace_back(lineText(doc_, i));
        }
    }
    doc_.lastCmd = idOf(Cmd::Spelling);
    // The run's record steps aside while the line is rewritten, so that a full stack
    // does not drop its oldest record for an entry that is taken back at once.
    EditRecord previous;
    if (continuing) {
        previous = std::move(u.undo.back());
        u.undo.pop_back();
    }
    if (!rewriteLines(doc_, line, {now})) {
        if (continuing) u.undo.push_back(std::move(previous));
        return false;
    }
    u.undo.pop_back();
    groupFirst_ = first;
    groupOriginal_ = std::move(original);
    const int32_t last = first + static_cast<int32_t>(groupOriginal_.size()) - 1;
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = rec.at = makePos(0, first);
    rec.rangeEnd = makePos(lineWidthAt(doc_, last), last);
    rec.text = joinLines(groupOriginal_);
    rec.kind = UndoKind::Spelling;
    u.undo.push_back(std::move(rec));
    groupDepth_ = u.undo.size();
    shiftStop(line, begin, static_cast<long>(replacement.size()) - static_cast<long>(end - begin));
    return true;
}

void SpellSession::shiftStop(int32_t line, size_t at, long delta) {
    if (line != stopLine_ || at >= stopOffset_) return;
    stopOffset_ = static_cast<size_t>(std::max(0L, static_cast<long>(stopOffset_) + delta));
}

}  // namespace zol
