// What the dialog tests share: the application object on the offscreen platform, a
// way to act on a modal dialog once it is up, and a shell that records what it is told.
#pragma once
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <functional>
#include <memory>

#include "tests/support/fake_shell.h"

namespace zol::dlgtest {

inline void ensureApp() {
    if (QApplication::instance()) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Only the test's own fonts, so that pictures are the same on every machine.
    qputenv("FONTCONFIG_FILE", ZOLDER_TEST_FONTS "/fonts.conf");
    qputenv("QT_QPA_FONTDIR", ZOLDER_TEST_FONTS);
    static int argc = 1;
    static char name[] = "test_qt";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
}

// Calls step with the top modal widget as soon as it is a D. Gives up after a few
// thousand polls so that a dialog that never opens fails the test instead of hanging.
template <class D>
void whenModal(std::function<void(D*)> step) {
    auto* timer = new QTimer;
    auto polls = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [timer, step, polls] {
        if (auto* d = qobject_cast<D*>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            step(d);
        } else if (++*polls > 4000) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start(1);
}

template <class T>
T* child(QWidget* w, const char* name) {
    T* c = w->findChild<T*>(name);
    EXPECT_NE(c, nullptr) << name;
    return c;
}

inline void pressOk(QDialog* d) { d->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); }

// Installed while it lives; questions are answered Yes unless the test says otherwise.
class RecordingShell : public test::FakeShell {
public:
    RecordingShell() {
        answer = Answer::Yes;
        setShell(this);
    }
    ~RecordingShell() override { setShell(nullptr); }
};

}  // namespace zol::dlgtest

namespace zol::qttest {
using dlgtest::child;
using dlgtest::pressOk;
using dlgtest::whenModal;
}  // namespace zol::qttest
