// A captured tool while it runs: zolcap appends the tool's output to a temporary
// file, which is read in slices into the output document as it grows. When zolcap
// has ended, the rest is read, the file goes, and how the tool ended is told in the
// status bar.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "engine/shell.h"
#include "platform/file_tail.h"
#include "platform/process.h"
#include "tools/output_document.h"

namespace zol {

// Bytes taken from the file in one slice: enough for a fast tool's thousands of
// lines, little enough that the window repaints between slices.
inline constexpr size_t kCaptureSliceBytes = 1 << 20;
// How long a stopped tool has after SIGTERM before SIGKILL ends it.
inline constexpr uint64_t kStopGraceMs = 2000;

class CaptureJob final : public BackgroundJob {
public:
    // child is zolcap, already started, writing to tempFile; out may be null.
    CaptureJob(ChildProcess child, std::string tempFile, Document* out, std::string title, std::string commandLine);
    // A tool still running is killed; the temporary file goes.
    ~CaptureJob() override;

    bool poll(int waitMs) override;
    void stop() override;
    bool stopping() const override { return stopAt_ != 0; }
    std::string title() const override { return title_; }
    std::string detail() const override { return commandLine_; }
    Document* output() const { return writer_ ? writer_->document() : nullptr; }

private:
    // Bytes read this time, or -1 when the file cannot be read.
    long readSlice();
    void end();
    std::string endText() const;

    ChildProcess child_;
    std::string tempFile_;
    FileTail tail_;
    bool tailOpen_ = false;
    std::unique_ptr<OutputWriter> writer_;
    std::string title_, commandLine_;
    std::string buffer_;
    uint64_t stopAt_ = 0;  // clock of the stop request, 0 while not stopped
    bool killed_ = false;
    bool unreadable_ = false;
    bool over_ = false;
};

}  // namespace zol
