#include "app/qt/key_words.h"

#include <QList>

#include "config/keymap.h"
#include "files/codepage.h"

namespace zol {
namespace {

struct KeyPair {
    int qt;
    uint8_t vk;
};

constexpr KeyPair kNamedKeys[] = {
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},      {Qt::Key_Backtab, 0x09},  {Qt::Key_Return, 0x0D},
    {Qt::Key_Enter, 0x0D},     {Qt::Key_Pause, 0x13},    {Qt::Key_Escape, 0x1B},   {Qt::Key_Space, 0x20},
    {Qt::Key_PageUp, 0x21},    {Qt::Key_PageDown, 0x22}, {Qt::Key_End, 0x23},      {Qt::Key_Home, 0x24},
    {Qt::Key_Left, 0x25},      {Qt::Key_Up, 0x26},       {Qt::Key_Right, 0x27},    {Qt::Key_Down, 0x28},
    {Qt::Key_Print, 0x2C},     {Qt::Key_Insert, 0x2D},   {Qt::Key_Delete, 0x2E},   {Qt::Key_Menu, 0x5D},
    {Qt::Key_Semicolon, 0xBA}, {Qt::Key_Equal, 0xBB},    {Qt::Key_Comma, 0xBC},    {Qt::Key_Minus, 0xBD},
    {Qt::Key_Period, 0xBE},    {Qt::Key_Slash, 0xBF},    {Qt::Key_QuoteLeft, 0xC0}, {Qt::Key_BracketLeft, 0xDB},
    {Qt::Key_Backslash, 0xDC}, {Qt::Key_BracketRight, 0xDD}, {Qt::Key_Apostrophe, 0xDE},
};

// Keypad keys that have NumPad codes of their own.
constexpr KeyPair kKeypadKeys[] = {
    {Qt::Key_Asterisk, 0x6A}, {Qt::Key_Plus, 0x6B},  {Qt::Key_Minus, 0x6D},
    {Qt::Key_Period, 0x6E},   {Qt::Key_Comma, 0x6E}, {Qt::Key_Slash, 0x6F},
};

}  // namespace

uint8_t virtualKeyOf(int qtKey, bool keypad) {
    if (keypad) {
        if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return static_cast<uint8_t>(0x60 + (qtKey - Qt::Key_0));
        for (const KeyPair& k : kKeypadKeys)
            if (k.qt == qtKey) return k.vk;
    }
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return static_cast<uint8_t>('A' + (qtKey - Qt::Key_A));
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return static_cast<uint8_t>('0' + (qtKey - Qt::Key_0));
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return static_cast<uint8_t>(0x70 + (qtKey - Qt::Key_F1));
    for (const KeyPair& k : kNamedKeys)
        if (k.qt == qtKey) return k.vk;
    return 0;
}

uint16_t keyWordOf(int qtKey, Qt::KeyboardModifiers mods) {
    const uint8_t vk = virtualKeyOf(qtKey, mods.testFlag(Qt::KeypadModifier));
    if (vk == 0) return 0;
    uint16_t word = kVirtualKey | vk;
    if (mods.testFlag(Qt::ShiftModifier) || qtKey == Qt::Key_Backtab) word |= kShiftKey;
    if (mods.testFlag(Qt::ControlModifier)) word |= kCtrlKey;
    if (mods.testFlag(Qt::AltModifier)) word |= kAltKey;
    return word;
}

bool keyTypesText(const QString& text, Qt::KeyboardModifiers mods) {
    if (text.isEmpty() || mods.testFlag(Qt::KeypadModifier)) return false;
    for (const QChar c : text)
        if (c.unicode() < 0x20 || c.unicode() == 0x7F) return false;
    return mods.testFlag(Qt::ControlModifier) == mods.testFlag(Qt::AltModifier);
}

int ansiByteOf(char32_t ch) {
    if (ch == '\t') return '\t';
    if (ch < 0x20 || ch == 0x7F) return -1;
    if (ch < 0x80) return static_cast<int>(ch);
    // Above 0x9F the page is Latin-1; below, 27 typographic characters are spread out.
    if (ch >= 0xA0 && ch <= 0xFF) return static_cast<int>(ch);
    for (int b = 0x80; b < 0xA0; ++b) {
        const uint16_t u = ansiToUnicode(static_cast<uint8_t>(b));
        // The five unused bytes map to themselves and stand for no character.
        if (u == ch && !(u >= 0x80 && u <= 0x9F)) return b;
    }
    return -1;
}

QChar ansiChar(uint8_t byte) { return QChar(static_cast<char16_t>(ansiToUnicode(byte))); }

QString ansiString(const char* bytes, size_t len) {
    QString s(static_cast<qsizetype>(len), Qt::Uninitialized);
    QChar* out = s.data();
    for (size_t i = 0; i < len; ++i) out[i] = ansiChar(static_cast<uint8_t>(bytes[i]));
    return s;
}

std::string ansiBytes(const QString& text) {
    std::string out;
    out.reserve(static_cast<size_t>(text.size()));
    for (const char32_t ch : text.toUcs4()) {
        if (ch == '\r' || ch == '\n') {
            out += static_cast<char>(ch);
            continue;
        }
        const int b = ansiByteOf(ch);
        out += b < 0 ? '?' : static_cast<char>(b);
    }
    return out;
}

}  // namespace zol
