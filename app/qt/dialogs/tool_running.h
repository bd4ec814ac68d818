// "RunningTool": a small window for each captured tool while it runs. It drives the
// tool's work on the window thread in short slices on a timer, so that the output
// document fills while the editor stays usable, and its Stop button ends the tool.
#pragma once
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <memory>

#include "engine/shell.h"

class QLabel;
class QPushButton;

namespace zol {

class TRunningToolDlg : public QDialog {
    Q_OBJECT
public:
    TRunningToolDlg(QWidget* parent, std::shared_ptr<BackgroundJob> job);
    // Closing the window stops the tool; the window goes when the tool has ended.
    void reject() override;
    void stop();
    bool running() const { return job_ != nullptr; }

Q_SIGNALS:
    // Some work was done: new output may be there.
    void progressed();
    void finished();

private:
    void tick();

    std::shared_ptr<BackgroundJob> job_;
    QTimer timer_;
    QElapsedTimer clock_;
    QLabel* elapsed_;
    QPushButton* stop_;
};

}  // namespace zol
