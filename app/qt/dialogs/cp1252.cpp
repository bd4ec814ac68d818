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

bool toCp1252(const QString& text, std::string& out) {
    static const QHash<char16_t, char> reverse = [] {
        QHash<char16_t, char> h;
        for (int b = 0; b < 256; ++b) h.insert(ansiToUnicode(static_cast<uint8_t>(b)), static_cast<char>(b));
        return h;
    }();
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

}  // namespace zol
