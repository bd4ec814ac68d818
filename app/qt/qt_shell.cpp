#include "app/qt/qt_shell.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QtEndian>

#include "app/qt/key_words.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "app/qt/plugin_windows.h"
#include "app/qt/messages.h"

#include "app/qt/dialogs/character_dialog.h"
#include "app/qt/dialogs/find_dialog.h"
#include "app/qt/dialogs/goto_dialog.h"
#include "app/qt/dialogs/macro_dialogs.h"
#include "app/qt/dialogs/tool_dialogs.h"
#include "app/qt/dialogs/tool_running.h"
#include "platform/fileinfo.h"
#include "platform/process.h"

namespace zol {
namespace {

QString title() { return QString::fromLatin1(qtmsg::kAppTitle); }

QString orTitle(std::string_view t) { return t.empty() ? title() : fromAnsi(t); }

struct BoxButtonPair {
    BoxButton button;
    QMessageBox::StandardButton qt;
};
constexpr BoxButtonPair kBoxButtons[] = {
    {BoxButton::Ok, QMessageBox::Ok},         {BoxButton::Cancel, QMessageBox::Cancel},
    {BoxButton::Abort, QMessageBox::Abort},   {BoxButton::Retry, QMessageBox::Retry},
    {BoxButton::Ignore, QMessageBox::Ignore}, {BoxButton::Yes, QMessageBox::Yes},
    {BoxButton::No, QMessageBox::No},
};

struct BoxIconPair {
    BoxIcon icon;
    QMessageBox::Icon qt;
};
constexpr BoxIconPair kBoxIcons[] = {
    {BoxIcon::None, QMessageBox::NoIcon},         {BoxIcon::Error, QMessageBox::Critical},
    {BoxIcon::Question, QMessageBox::Question},   {BoxIcon::Warning, QMessageBox::Warning},
    {BoxIcon::Information, QMessageBox::Information},
};

QMessageBox::StandardButton qtButton(BoxButton b) {
    for (const BoxButtonPair& p : kBoxButtons)
        if (p.button == b) return p.qt;
    return QMessageBox::Ok;
}

QMessageBox::Icon qtIcon(BoxIcon i) {
    for (const BoxIconPair& p : kBoxIcons)
        if (p.icon == i) return p.qt;
    return QMessageBox::NoIcon;
}

// A class name as scripts give it: without the namespace, in any letter case.
bool sameClass(const QWidget* w, std::string_view name) {
    QString cls = QString::fromLatin1(w->metaObject()->className());
    cls = cls.mid(cls.lastIndexOf(QLatin1Char(':')) + 1);
    return cls.compare(fromAnsi(name), Qt::CaseInsensitive) == 0;
}

bool sameTitle(const QWidget* w, std::string_view title) {
    QString t = w->windowTitle();
    t.remove(QStringLiteral("[*]"));
    return t.compare(fromAnsi(title), Qt::CaseInsensitive) == 0;
}

}  // namespace

QString fromAnsi(std::string_view bytes) { return ansiString(bytes.data(), bytes.size()); }

QMimeData* toMimeData(const ClipboardData& data) {
    auto* mime = new QMimeData;
    std::string text;
    text.reserve(data.text.size());
    for (char c : data.text)
        if (c != '\r') text += c;
    mime->setText(fromAnsi(text));
    if (data.hasColumnBlock) {
        QByteArray block(8, '\0');
        qToLittleEndian<quint32>(data.blockWidth, block.data());
        qToLittleEndian<quint32>(data.blockHeight, block.data() + 4);
        mime->setData(QString::fromLatin1(kColumnBlockMime), block);
    }
    return mime;
}

ClipboardData fromMimeData(const QMimeData* mime) {
    ClipboardData data;
    if (!mime || !mime->hasText()) return data;
    const std::string bytes = ansiBytes(mime->text());
    data.text.reserve(bytes.size() + bytes.size() / 16);
    for (size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\r') {
            data.text += "\r\n";
            if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        } else if (c == '\n') {
            data.text += "\r\n";
        } else {
            data.text += c;
        }
    }
    const QByteArray block = mime->data(QString::fromLatin1(kColumnBlockMime));
    if (block.size() >= 8) {
        data.hasColumnBlock = true;
        data.blockWidth = qFromLittleEndian<quint32>(block.constData());
        data.blockHeight = qFromLittleEndian<quint32>(block.constData() + 4);
    }
    return data;
}

void QtShell::message(std::string_view text) {
    QMessageBox::information(frame_, title(), fromAnsi(text));
}

Answer QtShell::ask(std::string_view text, bool withCancel) {
    QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
    if (withCancel) buttons |= QMessageBox::Cancel;
    switch (QMessageBox::question(frame_, title(), fromAnsi(text), buttons, QMessageBox::Yes)) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: return withCancel ? Answer::Cancel : Answer::No;
    }
}

void QtShell::statusMessage(std::string_view text) { frame_->showMessage(fromAnsi(text)); }

ClipboardData QtShell::getClipboard() { return fromMimeData(QApplication::clipboard()->mimeData()); }

void QtShell::setClipboard(const ClipboardData& data) { QApplication::clipboard()->setMimeData(toMimeData(data)); }

bool QtShell::openFileDialog(std::string& path, std::string_view filter, std::string_view t) {
    // Filters come as "Name|*.c;*.h|..." pairs; Qt wants "Name (*.c *.h);;...".
    QStringList parts = fromAnsi(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << parts[i] + QStringLiteral(" (") + QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')) +
                       QLatin1Char(')');
    if (filters.isEmpty()) filters << QString::fromLatin1(qtmsg::kAllFilesFilter);
    const QString chosen = QFileDialog::getOpenFileName(frame_, orTitle(t), QString::fromLocal8Bit(path.c_str()),
                                                        filters.join(QStringLiteral(";;")));
    if (chosen.isEmpty()) return false;
    path = chosen.toLocal8Bit().toStdString();
    return true;
}

bool QtShell::saveFileDialog(std::string& path, int& format, std::string_view t) {
    return frame_->askSaveName(path, format, orTitle(t));
}

bool QtShell::browseForDirDialog(std::string& path, std::string_view t) {
    const QString chosen = QFileDialog::getExistingDirectory(frame_, orTitle(t), QString::fromLocal8Bit(path.c_str()));
    if (chosen.isEmpty()) return false;
    path = chosen.toLocal8Bit().toStdString();
    return true;
}

bool QtShell::stringDialog(std::string& value, std::string_view t, std::string_view prompt) {
    bool ok = false;
    const QString s = QInputDialog::getText(frame_, orTitle(t), fromAnsi(prompt), QLineEdit::Normal, fromAnsi(value), &ok);
    if (!ok) return false;
    value = ansiBytes(s);
    return true;
}

bool QtShell::intDialog(int& value, int minimum, int maximum, std::string_view t, std::string_view prompt) {
    bool ok = false;
    const int v = QInputDialog::getInt(frame_, orTitle(t), fromAnsi(prompt), value, minimum, maximum, 1, &ok);
    if (ok) value = v;
    return ok;
}

int QtShell::listDialog(const std::vector<std::string>& items, std::string_view t) {
    if (items.empty()) return -1;
    QStringList list;
    for (const std::string& s : items) list << fromAnsi(s);
    bool ok = false;
    const QString chosen = QInputDialog::getItem(frame_, orTitle(t), QString(), list, 0, false, &ok);
    return ok ? static_cast<int>(list.indexOf(chosen)) : -1;
}

bool QtShell::readMeDialog(std::string_view t, std::string_view text) {
    QMessageBox box(QMessageBox::NoIcon, orTitle(t), fromAnsi(text), QMessageBox::Ok | QMessageBox::Cancel, frame_);
    return box.exec() == QMessageBox::Ok;
}

void QtShell::plugInsChanged() { frame_->plugInsChanged(); }

void QtShell::redrawPlugInWindow(intptr_t handle) { frame_->plugInWindows().redraw(handle); }

int QtShell::chooseCharacter(std::string_view t) {
    return TCharacterDialog::run(frame_, orTitle(t));
}

bool QtShell::askMacroName(std::string& name) {
    return TRecordMacroDialog::run(frame_, name);
}

FindDialogResult QtShell::findDialog(FindDialogData& data, bool replace) {
    return TFindDialog::run(frame_, data, replace);
}

bool QtShell::askNumber(std::string_view prompt, int& value) {
    return TGoToDialog::run(frame_, fromAnsi(prompt), value);
}

bool QtShell::openFile(const std::string& path) { return frame_->openFile(path) != nullptr; }

BoxButton QtShell::messageBox(const MessageBoxRequest& req) {
    const BoxButtonSet& set = boxButtonSet(req.buttons);
    QMessageBox box(qtIcon(req.icon), orTitle(req.caption), fromAnsi(req.text), QMessageBox::NoButton, frame_);
    for (size_t k = 0; k < set.count; ++k) box.addButton(qtButton(set.shown[k]));
    box.setDefaultButton(qtButton(set.shown[req.defaultButton < set.count ? req.defaultButton : 0]));
    const int chosen = box.exec();
    for (size_t k = 0; k < set.count; ++k)
        if (qtButton(set.shown[k]) == chosen) return set.shown[k];
    return set.asked[2];  // closed without a button: the safe answer
}

void QtShell::beep() { QApplication::beep(); }

void QtShell::busyCursor(bool on) {
    if (on == busy_) return;
    busy_ = on;
    if (on) QApplication::setOverrideCursor(Qt::WaitCursor);
    else QApplication::restoreOverrideCursor();
}

uint32_t QtShell::findWindow(std::optional<std::string_view> className, std::optional<std::string_view> t) {
    auto matches = [&](const QWidget* w) {
        return (!className || sameClass(w, *className)) && (!t || sameTitle(w, *t));
    };
    if (matches(frame_)) return kMainWindowToken;
    uint32_t token = kMainWindowToken;
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        if (w == frame_ || !w->isVisible()) continue;
        ++token;
        if (matches(w)) return token;
    }
    return 0;
}

bool QtShell::openHelp(const std::string& path) {
    if (path.find("://") == std::string::npos && !fileExists(path)) return false;
    return openWithDesktop(path) == StartResult::Started;
}

void QtShell::runJob(std::shared_ptr<BackgroundJob> job, bool wait) {
    if (!job) return;
    // The output document the job fills gets its window before the first output.
    frame_->syncViews();
    QPointer<TRunningToolDlg> dlg = new TRunningToolDlg(frame_, std::move(job));
    QObject::connect(dlg, &TRunningToolDlg::finished, frame_, [f = frame_] { f->syncViews(); });
    if (!wait) {
        // Out of the way of the text, and without taking the keyboard from it.
        dlg->setAttribute(Qt::WA_ShowWithoutActivating);
        dlg->adjustSize();
        dlg->move(frame_->mapToGlobal(QPoint(frame_->width() - dlg->width() - 32, frame_->height() - dlg->height() - 64)));
        dlg->show();
        return;
    }
    dlg->setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    QObject::connect(dlg, &TRunningToolDlg::finished, &loop, &QEventLoop::quit);
    QObject::connect(dlg, &QObject::destroyed, &loop, &QEventLoop::quit);
    dlg->show();
    if (dlg && dlg->running()) loop.exec();
}

bool QtShell::toolArguments(std::string& arguments, std::string_view tool) {
    return TToolArgumentsDlg::run(frame_, std::string(tool), arguments);
}

ReplacePromptAnswer QtShell::replacePrompt(Document& doc) {
    if (TVekWinEditor* view = frame_->viewOf(&doc)) {
        view->redraw();
        view->showCursorNow();
    }
    return TReplacePromptDlg::run(frame_);
}

}  // namespace zol
