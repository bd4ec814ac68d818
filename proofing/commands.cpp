#include "proofing/commands.h"

#include "config/profile_owners.h"
#include "engine/command_table.h"
#include "engine/document_list.h"
#include "engine/shell.h"
#include "proofing/autocorrect.h"
#include "proofing/messages.h"
#include "proofing/spell_session.h"
#include "proofing/speller.h"

namespace zol {
namespace {

ProofingFrontEnd* frontEnd = nullptr;

int cmdSpelling(Document& doc, const CommandCall&) {
    std::string error;
    Speller* sp = speller(&error);
    if (!sp) {
        shell().message(error);
        return 0;
    }
    if (!frontEnd) {
        shell().message(proofmsg::kNoSpellingDialog);
        return 0;
    }
    SpellSession session(doc, *sp);
    frontEnd->spellingDialog(session);
    return 1;
}

std::vector<const Document*> openDocuments() {
    std::vector<const Document*> docs;
    if (DocumentList* list = documentList())
        for (size_t i = 0, n = list->count(); i < n; ++i) docs.push_back(list->at(i));
    return docs;
}

int cmdCodeCompletion(Document& doc, const CommandCall&) {
    const CompletionPrefix prefix = completionPrefix(doc);
    std::vector<Candidate> all = gatherCandidates(doc, openDocuments());
    const std::vector<const Candidate*> fit = filterCandidates(all, prefix.text);
    if (fit.empty()) {
        shell().statusMessage(proofmsg::fill(proofmsg::kNoCompletions, prefix.text));
        return 0;
    }
    if (fit.size() == 1 && !prefix.text.empty()) return acceptCandidate(doc, prefix, *fit.front()) ? 1 : 0;
    if (!frontEnd) return 0;
    frontEnd->completionPopup(doc, prefix, std::move(all));
    return 1;
}

}  // namespace

void setProofingFrontEnd(ProofingFrontEnd* f) { frontEnd = f; }

void installProofing() {
    setCommandHandler(Cmd::Spelling, cmdSpelling);
    setCommandHandler(Cmd::CodeCompletion, cmdCodeCompletion);
    registerProfileOwner(
        "zol.acr", [](std::string_view, std::string_view) { loadAutoCorrect(); },
        [](std::string_view, std::string_view) { saveAutoCorrect(); });
}

}  // namespace zol
