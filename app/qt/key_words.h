// Qt keys as the key map's key words (Windows virtual-key numbers with modifier bits),
// and the Windows-1252 bytes the view shows and types.
#pragma once
#include <QChar>
#include <QString>
#include <Qt>
#include <cstdint>

namespace zol {

// The Windows virtual-key code of a Qt key, 0 when it has none. Keypad digits and
// operators get their NumPad codes when keypad is set.
uint8_t virtualKeyOf(int qtKey, bool keypad);
// The key word of a key press (kVirtualKey set), 0 for keys without a code (bare
// modifiers, dead keys).
uint16_t keyWordOf(int qtKey, Qt::KeyboardModifiers mods);
// Whether a key press with this text types it into a document instead of going
// through the key map when no prefix is pending: printable text without Ctrl or Alt,
// or with both (AltGr on many layouts). Keypad keys are left out: a key map binding
// takes them over.
bool keyTypesText(const QString& text, Qt::KeyboardModifiers mods);

// The Windows-1252 byte of a character, -1 when the code page lacks it. Control
// characters other than tab have no byte either: they cannot be typed as text.
int ansiByteOf(char32_t ch);
// What a byte of the document looks like on screen.
QChar ansiChar(uint8_t byte);
// A document line as screen text, byte for character.
QString ansiString(const char* bytes, size_t len);
// Text from the desktop as document bytes; characters outside the code page become "?".
std::string ansiBytes(const QString& text);

}  // namespace zol
