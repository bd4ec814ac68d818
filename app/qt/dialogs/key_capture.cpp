#include "app/qt/dialogs/key_capture.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QKeySequence>

#include "app/qt/dialogs/messages.h"
#include "app/qt/key_words.h"
#include "config/keymap.h"

namespace zol {
namespace {

bool isModifierKey(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock: return true;
    default: return false;
    }
}

}  // namespace

TKeyCaptureEdit::TKeyCaptureEdit(Role role, QWidget* parent) : QLineEdit(parent), role_(role) {
    setReadOnly(true);
    setPlaceholderText(QString::fromLatin1(dlgmsg::kCapturePrompt));
    setContextMenuPolicy(Qt::NoContextMenu);
}

void TKeyCaptureEdit::clearKey() {
    key_ = 0;
    problem_.clear();
    clear();
    Q_EMIT keyChanged();
}

bool TKeyCaptureEdit::event(QEvent* e) {
    if (!waiting_) return QLineEdit::event(e);
    // Shortcuts, mnemonics and the dialog's own keys must not see what is meant for
    // the field.
    if (e->type() == QEvent::ShortcutOverride) {
        e->accept();
        return true;
    }
    if (e->type() == QEvent::KeyPress) {
        take(*static_cast<QKeyEvent*>(e));
        return true;
    }
    return QLineEdit::event(e);
}

void TKeyCaptureEdit::focusInEvent(QFocusEvent* e) {
    waiting_ = true;
    QLineEdit::focusInEvent(e);
}

void TKeyCaptureEdit::mousePressEvent(QMouseEvent* e) {
    waiting_ = true;
    QLineEdit::mousePressEvent(e);
}

void TKeyCaptureEdit::take(const QKeyEvent& e) {
    if (isModifierKey(e.key())) return;
    waiting_ = false;
    uint16_t word = keyWordOf(e.key(), e.modifiers());
    if (role_ == Role::SecondKey) word = normaliseSecondKey(word);
    const QString name = QString::fromLatin1(keyName(word).c_str());
    key_ = word;
    problem_.clear();
    if (name.isEmpty() || e.modifiers().testFlag(Qt::MetaModifier)) {
        const QString shown = QKeySequence(e.keyCombination()).toString(QKeySequence::NativeText);
        problem_ = QString::fromLatin1(dlgmsg::kKeyNotMappable).arg(shown);
        setText(shown);
    } else {
        if (role_ == Role::FirstKey && keyTypesText(e.text(), e.modifiers()))
            problem_ = QString::fromLatin1(dlgmsg::kKeyTypesText).arg(name);
        setText(name);
    }
    Q_EMIT keyChanged();
}

}  // namespace zol
