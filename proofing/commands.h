// The proofing commands, "Spelling" and "CodeCompletion", and the front end's parts of
// them: the spelling dialog and the completion popup. Without a front end installed,
// spelling says it needs the desktop and completion completes only a word that has
// one candidate.
#pragma once
#include <vector>

#include "proofing/completion.h"

namespace zol {

class SpellSession;

class ProofingFrontEnd {
public:
    virtual ~ProofingFrontEnd() = default;
    // Walks the session with the user to its end or until the user stops it.
    virtual void spellingDialog(SpellSession& session) = 0;
    // Offers the candidates for the prefix; the front end accepts one later, or none.
    virtual void completionPopup(Document& doc, const CompletionPrefix& prefix, std::vector<Candidate> all) = 0;
};
void setProofingFrontEnd(ProofingFrontEnd* frontEnd);

// Puts the two handlers into the command table and makes the AutoCorrect list the
// settings store's owner of "zol.acr".
void installProofing();

}  // namespace zol
