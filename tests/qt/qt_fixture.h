// A desktop editor in the offscreen platform: the real frame, views and shell, with
// modal boxes answered by a watcher so that no test waits for a user.
#pragma once
#include <QApplication>
#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "app/application.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "app/qt/qt_shell.h"
#include "engine/document.h"
#include "config/keymap.h"
#include "engine/options.h"
#include "plugin/plugin_manager.h"
#include "tests/qt/dialogs_support.h"
#include "tests/support/temp_dir.h"

namespace zol::qttest {

// Counts the paint events of the widgets it watches.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint) ++paints;
        return false;
    }
};

class DesktopTest : public ::testing::Test {
protected:
    void SetUp() override {
        dlgtest::ensureApp();
        ASSERT_FALSE(tmp_.dir().empty());
        // The shipped sample plug-ins would take part in every test (one keeps unsaved
        // documents open).
        plugInManager().enabled = false;
        app_ = std::make_unique<Application>();
        frame_ = std::make_unique<TMainFrame>(*app_);
        setShell(&frame_->qtShell());
        startUp(*app_, StartupOptions{home_.string(), {}, {}});
        options() = EditOptions{};
        frame_->applySettings();
        frame_->resize(900, 640);
        frame_->show();
        // Answers whatever modal box comes up with the button the test chose.
        QObject::connect(&watcher_, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal) return;
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                boxTexts_.push_back(box->text().toStdString());
                if (QAbstractButton* b = box->button(static_cast<QMessageBox::StandardButton>(answer_))) b->click();
                else box->reject();
            }
        });
        watcher_.start(10);
    }

    void TearDown() override {
        for (const auto& d : app_->documents) d->modified = false;
        setKeyMapChanged(false);
        answer_ = QMessageBox::No;
        shutDown(*app_);
        watcher_.stop();
        frame_.reset();
        setShell(nullptr);
        app_.reset();
    }

    std::filesystem::path write(const std::string& name, const std::string& bytes) { return tmp_.put(name, bytes); }
    Document* open(const std::string& name, const std::string& bytes) {
        return frame_->openFile(write(name, bytes).string());
    }
    TVekWinEditor* view() { return frame_->activeView(); }
    Document& doc() { return *view()->document(); }
    std::string line(int32_t n) { return std::string(lineText(doc(), n)); }

    test::TempDir tmp_{"zolqt"};
    std::filesystem::path home_ = tmp_.dir();
    std::unique_ptr<Application> app_;
    std::unique_ptr<TMainFrame> frame_;
    QTimer watcher_;
    int answer_ = QMessageBox::Yes;
    std::vector<std::string> boxTexts_;
};

}  // namespace zol::qttest
