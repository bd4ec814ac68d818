// The key-mapping dialogs: every command with its keys, where keys are assigned by
// pressing them, removed, reset to the shipped ones, and the second key of a sequence
// behind a prefix key chosen.
#pragma once
#include <QDialog>
#include <cstdint>

#include "config/keymap.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace zol {

class TKeyCaptureEdit;

// Works on a copy of the key map. OK puts the copy in place and writes the key file
// with the macros; when the file cannot be written the dialog says so and stays open
// with the old map still in force. Closing with changes asks whether to save them.
// Reset All copies DEFKEY.ZOL over the key file at once, after asking.
class TKeyMappingDlg : public QDialog {
    Q_OBJECT
public:
    explicit TKeyMappingDlg(QWidget* parent);
    // True when OK saved a changed key map.
    static bool run(QWidget* parent);

    void accept() override;
    void reject() override;

private:
    void layOut();
    void buildList();
    void refreshKeys();
    void applyFilter();
    uint16_t currentCommand() const;
    void commandChanged();
    void showCaptureInfo();
    void assignKey();
    void removeKey();
    void resetCommand();
    void resetAll();
    bool placeKey(int table, uint16_t prefixKey, uint16_t key, uint16_t command);
    bool ask(const QString& text);

    KeyMap map_;
    QLineEdit* filter_;
    QTreeWidget* commands_;
    QLabel* description_;
    QListWidget* keys_;
    QPushButton* remove_;
    QPushButton* reset_;
    TKeyCaptureEdit* capture_;
    QLabel* captureInfo_;
    QPushButton* assign_;
    QPushButton* resetAll_;
    QDialogButtonBox* buttons_;
    QPushButton* ok_;
};

// The key that follows prefixKey, which opens prefix table `table` of map.
class TKeyMappingPrefixDlg : public QDialog {
    Q_OBJECT
public:
    TKeyMappingPrefixDlg(QWidget* parent, const KeyMap& map, uint16_t prefixKey, int table);
    // The second key as the prefix table holds it; false when cancelled.
    static bool run(QWidget* parent, const KeyMap& map, uint16_t prefixKey, int table, uint16_t& key);

private:
    void showInfo();

    const KeyMap& map_;
    uint16_t prefixKey_;
    int table_;
    TKeyCaptureEdit* capture_;
    QLabel* info_;
    QPushButton* ok_;
};

}  // namespace zol
