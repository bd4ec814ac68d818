#include "app/qt/dialogs/tool_running.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/qt/dialogs/tool_messages.h"

namespace zol {
namespace {

namespace msg = toolmsg::dlg;

// How often the tool's output is looked at.
constexpr int kTickMs = 10;

QString txt(const char* text) { return QString::fromLatin1(text); }

}  // namespace

TRunningToolDlg::TRunningToolDlg(QWidget* parent, std::shared_ptr<BackgroundJob> job)
    : QDialog(parent), job_(std::move(job)) {
    setObjectName(msg::kRunningName);
    setWindowTitle(txt(msg::kRunningTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(QString::fromLocal8Bit(job_->title().c_str()), this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto* command = new QLabel(QString::fromLocal8Bit(job_->detail().c_str()), this);
    command->setObjectName("command");
    command->setTextInteractionFlags(Qt::TextSelectableByMouse);
    elapsed_ = new QLabel(txt(msg::kElapsed).arg(0), this);
    stop_ = new QPushButton(txt(msg::kStop), this);
    stop_->setObjectName("stop");
    layout->addWidget(title);
    layout->addWidget(command);
    layout->addWidget(elapsed_);
    layout->addWidget(stop_, 0, Qt::AlignRight);
    connect(stop_, &QPushButton::clicked, this, &TRunningToolDlg::stop);
    connect(&timer_, &QTimer::timeout, this, &TRunningToolDlg::tick);
    clock_.start();
    timer_.start(kTickMs);
}

void TRunningToolDlg::tick() {
    if (!job_) return;
    // One slice a tick: a fast tool's output comes a slice of a megabyte at a time,
    // and the window repaints in between.
    const bool more = job_->poll(0);
    elapsed_->setText(txt(msg::kElapsed).arg(clock_.elapsed() / 1000));
    Q_EMIT progressed();
    if (more) return;
    timer_.stop();
    job_.reset();
    Q_EMIT finished();
    close();
}

void TRunningToolDlg::stop() {
    if (!job_ || job_->stopping()) return;
    job_->stop();
    stop_->setEnabled(false);
    stop_->setText(txt(msg::kStopping));
}

void TRunningToolDlg::reject() {
    if (job_) stop();
    else QDialog::reject();
}

}  // namespace zol
