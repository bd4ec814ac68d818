#include "engine/shell.h"

#include "engine/document_list.h"

namespace zol {
namespace {

using B = BoxButton;
constexpr BoxButtonSet kButtonSets[] = {
    {BoxButtons::Ok, {B::Ok}, 1, {B::Ok, B::Ok, B::Ok}},
    {BoxButtons::OkCancel, {B::Ok, B::Cancel}, 2, {B::Ok, B::Cancel, B::Cancel}},
    {BoxButtons::AbortRetryIgnore, {B::Abort, B::Retry, B::Ignore}, 3, {B::Retry, B::Ignore, B::Abort}},
    {BoxButtons::YesNoCancel, {B::Yes, B::No, B::Cancel}, 3, {B::Yes, B::No, B::Cancel}},
    {BoxButtons::YesNo, {B::Yes, B::No}, 2, {B::Yes, B::No, B::No}},
    {BoxButtons::RetryCancel, {B::Retry, B::Cancel}, 2, {B::Retry, B::Cancel, B::Cancel}},
};

class SilentShell final : public Shell {
public:
    void message(std::string_view) override {}
    Answer ask(std::string_view, bool withCancel) override { return withCancel ? Answer::Cancel : Answer::No; }
    void statusMessage(std::string_view) override {}
    ClipboardData getClipboard() override { return clip_; }
    void setClipboard(const ClipboardData& data) override { clip_ = data; }

private:
    ClipboardData clip_;
};

SilentShell silentShell;
Shell* current = &silentShell;

}  // namespace

const BoxButtonSet& boxButtonSet(BoxButtons set) {
    for (const BoxButtonSet& s : kButtonSets)
        if (s.set == set) return s;
    return kButtonSets[0];
}

uint32_t mainWindowToken() { return documentList() && documentList()->mainWindow() ? kMainWindowToken : 0; }

BoxButton Shell::messageBox(const MessageBoxRequest& box) {
    const BoxButtonSet& set = boxButtonSet(box.buttons);
    if (set.count == 1) {
        message(box.text);
        return set.shown[0];
    }
    switch (ask(box.text, set.count == 3)) {
    case Answer::Yes: return set.asked[0];
    case Answer::No: return set.asked[1];
    default: return set.asked[2];
    }
}

void Shell::runJob(std::shared_ptr<BackgroundJob> job, bool) {
    while (job && job->poll(kJobWaitMs)) {
    }
}

Shell& shell() { return *current; }
void setShell(Shell* s) { current = s ? s : &silentShell; }

}  // namespace zol
