#include "tools/capture_job.h"

#include "platform/clock.h"
#include "platform/file_io.h"
#include "tools/messages.h"

namespace zol {

CaptureJob::CaptureJob(ChildProcess child, std::string tempFile, Document* out, std::string title,
                       std::string commandLine)
    : child_(child), tempFile_(std::move(tempFile)), title_(std::move(title)), commandLine_(std::move(commandLine)) {
    if (out) writer_ = std::make_unique<OutputWriter>(*out);
    tailOpen_ = openTail(tail_, tempFile_);
}

CaptureJob::~CaptureJob() {
    if (!child_.ended()) {
        stopChild(child_, true);
        waitChildToEnd(child_);
    }
    closeTail(tail_);
    if (!tempFile_.empty()) removeFile(tempFile_);
}

long CaptureJob::readSlice() {
    if (!tailOpen_) return -1;
    buffer_.clear();
    const long got = readTail(tail_, buffer_, kCaptureSliceBytes);
    if (got > 0 && writer_) writer_->write(buffer_);
    return got;
}

bool CaptureJob::poll(int waitMs) {
    if (over_) return false;
    const long got = readSlice();
    if (got < 0) unreadable_ = true;
    if (got == static_cast<long>(kCaptureSliceBytes)) return true;  // more is waiting
    if (!child_.ended()) {
        if (stopAt_ && !killed_ && monotonicMilliseconds() - stopAt_ >= kStopGraceMs) {
            stopChild(child_, true);
            killed_ = true;
        }
        // Once it has ended, the next slice takes what it wrote last.
        waitChild(child_, got > 0 ? 0 : waitMs);
        return true;
    }
    end();
    return false;
}

void CaptureJob::stop() {
    if (over_ || child_.ended() || stopAt_) return;
    stopAt_ = monotonicMilliseconds();
    if (stopAt_ == 0) stopAt_ = 1;
    stopChild(child_, false);
}

std::string CaptureJob::endText() const {
    if (unreadable_ && !tailOpen_) return toolmsg::fill(toolmsg::kOutputUnreadable, title_);
    if (stopAt_) return toolmsg::fill(toolmsg::kStopped, title_);
    const ExitStatus& s = child_.status;
    if (s.signalled) return toolmsg::fill(toolmsg::kEndedSignal, title_, std::to_string(s.code));
    if (s.code != 0) return toolmsg::fill(toolmsg::kEndedStatus, title_, std::to_string(s.code));
    return toolmsg::fill(toolmsg::kEndedOk, title_);
}

void CaptureJob::end() {
    over_ = true;
    if (writer_) writer_->finish();
    closeTail(tail_);
    removeFile(tempFile_);
    tempFile_.clear();
    shell().statusMessage(endText());
}

}  // namespace zol
