#include "app/qt/qt_shell.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QtEndian>

#include "app/qt/key_words.h"
#include "app/qt/main_frame.h"
#include "app/qt/messages.h"

#include "app/qt/dialogs/character_dialog.h"
#include "app/qt/dialogs/find_dialog.h"
#include "app/qt/dialogs/goto_dialog.h"
#include "app/qt/dialogs/macro_dialogs.h"

namespace zol {
namespace {

QString title() { return QString::fromLatin1(qtmsg::kAppTitle); }

QString orTitle(std::string_view t) { return t.empty() ? title() : fromAnsi(t); }

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

void QtShell::plugInsChanged() { frame_->rebuildPlugInMenu(); }

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

}  // namespace zol
