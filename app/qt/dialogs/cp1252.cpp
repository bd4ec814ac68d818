#include "app/qt/dialogs/cp1252.h"

#include <QHash>

#include "files/codepage.h"

namespace zol {

QString fromCp1252(std::string_view bytes) {
    QString s;
    s.reserve(static_cast<qsizetype>(bytes.size()));
    for (char c : bytes) s.append(QChar(ansiToUnicode(static_cast<uint8_t>(c))));
    return s;
}

namespace {

const QHash<char16_t, char>& reverseTable() {
    static const QHash<char16_t, char> reverse = [] {
        QHash<char16_t, char> h;
        for (int b = 0; b < 256; ++b) h.insert(ansiToUnicode(static_cast<uint8_t>(b)), static_cast<char>(b));
        return h;
    }();
    return reverse;
}

}  // namespace

bool toCp1252(const QString& text, std::string& out) {
    const QHash<char16_t, char>& reverse = reverseTable();
    std::string bytes;
    bytes.reserve(static_cast<size_t>(text.size()));
    for (QChar c : text) {
        auto it = reverse.constFind(c.unicode());
        if (it == reverse.constEnd()) return false;
        bytes.push_back(it.value());
    }
    out = std::move(bytes);
    return true;
}

std::string toCp1252Lossy(const QString& text) {
    const QHash<char16_t, char>& reverse = reverseTable();
    std::string bytes;
    bytes.reserve(static_cast<size_t>(text.size()));
    for (QChar c : text) bytes.push_back(reverse.value(c.unicode(), '?'));
    return bytes;
}

}  // namespace zol
