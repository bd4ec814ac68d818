// The two plug-in dialogs. "AboutPlugIns" lists the loaded modules with their names and
// files, and offers each module's own About, Help and Options where it exports them.
// "AddRemovePlugIns" lists the modules of the home's "PlugIns" folder and installs,
// loads, unloads and removes them (plugin/plugin_install.h).
#pragma once
#include <QDialog>
#include <string>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace zol {

class TAboutPlugInsDlg : public QDialog {
    Q_OBJECT
public:
    explicit TAboutPlugInsDlg(QWidget* parent);
    static void run(QWidget* parent);

private:
    void refresh();
    void refreshButtons();
    void callSelected(const char* entry);

    QTreeWidget* list_;
    QPushButton *about_, *help_, *options_;
};

class TAddRemovePlugInsDlg : public QDialog {
    Q_OBJECT
public:
    explicit TAddRemovePlugInsDlg(QWidget* parent);
    static void run(QWidget* parent);
    // Installs the module at path as Add does once its file is chosen; false (the reason
    // shown) when it was not installed.
    bool addFrom(const QString& path);
    // Selects the module of that file name; false when it is not listed.
    bool select(const QString& file);

private:
    void refresh();
    void refreshButtons();
    std::string selectedFile() const;
    bool report(const std::string& message);
    void addChosen();
    void loadSelected();
    void unloadSelected();
    void removeSelected();

    QTreeWidget* list_;
    QPushButton *add_, *load_, *unload_, *remove_;
};

}  // namespace zol
