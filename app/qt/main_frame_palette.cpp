// TMainFrame: the command palette and the view's context menu.
#include <QMenu>
#include <QPointer>
#include <optional>

#include "app/qt/command_palette.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "app/qt/menus.h"
#include "app/qt/messages.h"
#include "engine/selection.h"
#include "engine/shell.h"

namespace zol {
namespace {

constexpr int kMaxNumberParam = 65535;

}  // namespace

void TMainFrame::openPalette() {
    const std::optional<PaletteEntry> e = TCommandPalette::run(this, paletteEntries(qtmsg::kMenuBar));
    if (e) runPaletteEntry(*e);
    if (TVekWinEditor* v = activeView()) v->setFocus();
}

void TMainFrame::runPaletteEntry(const PaletteEntry& e) {
    if (!e.command) {
        runFrameAction(e.action);
        return;
    }
    const CommandRecord* r = findCommand(e.command);
    uint32_t param = 0;
    if (!r || r->owner == CommandOwner::Inert || !askParameter(*r, param)) return;
    runOnActive(e.command, param);
}

bool TMainFrame::askParameter(const CommandRecord& r, uint32_t& param) {
    if (r.kind == ParamKind::Number) {
        int value = 1;
        const std::string prompt = QString::fromLatin1(qtmsg::kParamNumberPrompt).arg(QLatin1String(r.name)).toStdString();
        if (!shell().intDialog(value, 1, kMaxNumberParam, qtmsg::kPaletteTitle, prompt)) return false;
        param = static_cast<uint32_t>(value);
    } else if (r.kind == ParamKind::Char) {
        const int c = shell().chooseCharacter(QString::fromLatin1(qtmsg::kParamCharTitle).arg(QLatin1String(r.name)).toStdString());
        if (c < 0) return false;
        param = static_cast<uint32_t>(c);
    }
    return true;
}

QMenu* TMainFrame::contextMenu(TVekWinEditor* view) {
    auto* m = new QMenu(this);
    QPointer<TVekWinEditor> target(view);
    MenuHooks hooks{[this, target](uint16_t id) {
                        if (target) target->runCommand(id);
                        syncViews();
                    },
                    [this](const std::string& name) { runFrameAction(name); }};
    addMenuRows(m, qtmsg::kContextMenu, hooks);
    const bool selected = view && view->document() && hasSelection(*view->document());
    for (QAction* a : m->actions()) {
        const uint16_t id = menuCommand(a);
        if (id == idOf(Cmd::Cut) || id == idOf(Cmd::Copy)) a->setEnabled(selected);
    }
    return m;
}

}  // namespace zol
