// TCommandPalette: every editor command by description and name with its current
// keys, and the frame's own menu actions. Typing narrows the list, the arrow keys move
// in it, Enter takes the chosen entry. Commands that this build cannot carry out stay
// listed, disabled, so that a search for them says why instead of finding nothing.
#pragma once
#include <QDialog>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/qt/messages.h"

class QLineEdit;
class QTreeView;

namespace zol {

class PaletteModel;

struct PaletteEntry {
    uint16_t command = 0;  // 0 for a frame action
    std::string action;    // the frame action's name
    QString title;         // the command's description, else its menu label, else its name
    QString name;
    QString label;         // the menu label without its marks, if the menus have one
    QString keys;
    bool enabled = true;
    QString haystack;      // title, name, menu label and keys in lower case
};

// The command table's commands in table order, then the Action rows of menuRows.
std::vector<PaletteEntry> paletteEntries(std::span<const qtmsg::MenuRow> menuRows);
// The filter's blank-separated words, in lower case.
QStringList paletteWords(const QString& filter);
// True when every word occurs in the entry.
bool paletteMatches(const PaletteEntry& e, const QStringList& words);
// Where a matching entry goes in the list, best first: its menu label or name is the
// whole filter; its menu label begins with the first word; its name does; a word of
// its description or label does; anything else. The table's order within each.
int paletteRank(const PaletteEntry& e, const QStringList& words);

class TCommandPalette : public QDialog {
    Q_OBJECT

public:
    TCommandPalette(QWidget* parent, std::vector<PaletteEntry> entries);
    // Shows the palette until an entry is taken or the user leaves it.
    static std::optional<PaletteEntry> run(QWidget* parent, std::vector<PaletteEntry> entries);

    void setFilter(const QString& text);
    int shownCount() const;
    // The highlighted entry, null when the list shows none.
    const PaletteEntry* selected() const;
    QLineEdit* filterEdit() const { return filter_; }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void take();

    std::vector<PaletteEntry> entries_;
    QLineEdit* filter_;
    QTreeView* list_;
    PaletteModel* model_;
};

}  // namespace zol
