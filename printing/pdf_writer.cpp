#include "printing/pdf_writer.h"

#include <cmath>
#include <cstdio>
#include <vector>

#include "platform/durable_write.h"
#include "printing/messages.h"

namespace zol {

namespace {

// Courier's advance is 600 of its 1000 units; rows are set at 1.2 times the size, as
// word processors space single lines, with the baseline where the ascent ends.
constexpr double kCourierAdvance = 0.6;
constexpr double kLineSpacing = 1.2;
constexpr double kBaseline = 0.9;
constexpr double kPointsPerTenthMm = 72.0 / 254.0;
constexpr double kA4Width = 2100 * kPointsPerTenthMm, kA4Height = 2970 * kPointsPerTenthMm;

// Object numbers: the catalogue, the page tree, the four fonts, then two per page.
constexpr int kCatalog = 1, kPageTree = 2, kFirstFont = 3, kFonts = 4, kFirstPageObject = kFirstFont + kFonts;
constexpr const char* kFontNames[kFonts] = {"Courier", "Courier-Bold", "Courier-Oblique", "Courier-BoldOblique"};

class PdfFile {
public:
    explicit PdfFile(DurableReplace& out) : out_(out) {}
    void put(std::string_view s) {
        putBytes(out_, s);
        written_ += s.size();
    }
    void begin(int object) {
        if (offsets_.size() <= static_cast<size_t>(object)) offsets_.resize(static_cast<size_t>(object) + 1);
        offsets_[static_cast<size_t>(object)] = written_;
        put(std::to_string(object) + " 0 obj\n");
    }
    void finish(int root) {
        const size_t xref = written_;
        std::string t = "xref\n0 " + std::to_string(offsets_.size()) + "\n0000000000 65535 f \n";
        char entry[24];
        for (size_t i = 1; i < offsets_.size(); ++i) {
            std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", offsets_[i]);
            t += entry;
        }
        t += "trailer\n<< /Size " + std::to_string(offsets_.size()) + " /Root " + std::to_string(root) +
             " 0 R >>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n";
        put(t);
    }

private:
    DurableReplace& out_;
    size_t written_ = 0;
    std::vector<size_t> offsets_;
};

// A PDF number with two decimals; snprintf's floating point is most of the writing's
// time otherwise.
void pdfNumber(std::string& out, double v) {
    long long hundredths = std::llround(v * 100);
    if (hundredths < 0) out += '-', hundredths = -hundredths;
    out += std::to_string(hundredths / 100);
    const auto frac = static_cast<int>(hundredths % 100);
    out += '.';
    out += static_cast<char>('0' + frac / 10);
    out += static_cast<char>('0' + frac % 10);
}

void pdfString(std::string& out, std::string_view text) {
    out += '(';
    for (const char c : text) {
        const auto b = static_cast<unsigned char>(c);
        if (c == '(' || c == ')' || c == '\\') {
            out += '\\';
            out += c;
        } else if (b < 0x20) {
            char oct[8];
            std::snprintf(oct, sizeof oct, "\\%03o", b);
            out += oct;
        } else {
            out += c;
        }
    }
    out += ')';
}

int fontOf(RunKind kind, const PrintOptions& o) {
    if (!o.syntax || o.colour) return 0;
    return kind == RunKind::Keyword ? 1 : kind == RunKind::Comment ? 2 : 0;
}

// A page's content: rows follow each other by the text leading ("'" shows a string on
// the next row), and the runs of a row are joined into as few strings as their fonts
// and colours allow, gaps filled with blanks, so a plain line costs a few bytes more
// than its text.
class PageWriter {
public:
    PageWriter(const PrintPlan& plan, double size) : plan_(plan), size_(size) {}

    std::string content(const PrintPage& page) {
        s_.clear();
        const PageFrame& f = plan_.frame;
        char buf[64];
        std::snprintf(buf, sizeof buf, "BT\n%.2f TL\n", plan_.metrics.lineHeight);
        s_ += buf;
        font_ = -1;
        colour_ = kBlack;
        setFont(0);
        if (f.header) pageLine(page.header, f.headerY);
        moveTo(0, f.textY);
        for (size_t i = 0; i < page.rows.size(); ++i) row(page.rows[i].runs, i > 0);
        if (f.footer) pageLine(page.footer, f.footerY);
        s_ += "ET\n";
        return s_;
    }

private:
    static constexpr Rgb kBlack{0, 0, 0};

    void row(const std::vector<PrintRun>& runs, bool nextRow) {
        int column = 0;
        bool first = true;
        for (size_t i = 0; i < runs.size();) {
            setFont(fontOf(runs[i].kind, plan_.options));
            setColour(runs[i].colour);
            text_.clear();
            for (; i < runs.size() && fontOf(runs[i].kind, plan_.options) == font_ && runs[i].colour == colour_; ++i) {
                text_.append(static_cast<size_t>(std::max(0, runs[i].column - column)), ' ');
                text_ += runs[i].text;
                column = runs[i].column + static_cast<int>(runs[i].text.size());
            }
            if (first) startRow(nextRow);
            else pdfString(s_, text_), s_ += "Tj\n";
            first = false;
        }
        if (first && nextRow) s_ += "T*\n";
    }

    // The row's first string: the row starts where its text does, so indentation costs
    // nothing while it stays as it was.
    void startRow(bool nextRow) {
        const size_t lead = std::min(text_.find_first_not_of(' '), text_.size());
        const int start = static_cast<int>(lead);
        if (start != lineStart_ || !nextRow) {
            if (start != lineStart_ || nextRow) {
                pdfNumber(s_, (start - lineStart_) * plan_.metrics.cellWidth);
                s_ += ' ';
                pdfNumber(s_, nextRow ? -plan_.metrics.lineHeight : 0.0);
                s_ += " Td\n";
            }
            lineStart_ = start;
            pdfString(s_, std::string_view(text_).substr(lead));
            s_ += "Tj\n";
            return;
        }
        pdfString(s_, std::string_view(text_).substr(lead));
        s_ += "'\n";
    }

    void pageLine(const PageLine& line, double y) {
        const int cols = plan_.frame.columns;
        const int at[3] = {0, (cols - static_cast<int>(line[1].size())) / 2, cols - static_cast<int>(line[2].size())};
        setColour(kBlack);
        for (int i = 0; i < 3; ++i) {
            if (line[i].empty()) continue;
            moveTo(std::max(0, at[i]), y);
            pdfString(s_, line[i]);
            s_ += "Tj\n";
        }
    }

    void moveTo(int column, double top) {
        lineStart_ = 0;
        char buf[64];
        std::snprintf(buf, sizeof buf, "1 0 0 1 %.2f %.2f Tm\n", plan_.frame.left + column * plan_.metrics.cellWidth,
                      plan_.metrics.height - top - kBaseline * size_);
        s_ += buf;
    }

    void setFont(int font) {
        if (font == font_) return;
        char buf[32];
        std::snprintf(buf, sizeof buf, "/F%d %.2f Tf\n", font + 1, size_);
        s_ += buf;
        font_ = font;
    }

    void setColour(Rgb c) {
        if (c == colour_) return;
        char buf[48];
        std::snprintf(buf, sizeof buf, "%.3g %.3g %.3g rg\n", c.r / 255.0, c.g / 255.0, c.b / 255.0);
        s_ += buf;
        colour_ = c;
    }

    const PrintPlan& plan_;
    double size_;
    std::string s_, text_;
    int font_ = -1;
    Rgb colour_{};
    int lineStart_ = 0;  // column where the current row's text starts
};

void writeHead(PdfFile& pdf) {
    pdf.put("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
    pdf.begin(kCatalog);
    pdf.put("<< /Type /Catalog /Pages 2 0 R >>\nendobj\n");
    for (int i = 0; i < kFonts; ++i) {
        pdf.begin(kFirstFont + i);
        pdf.put(std::string("<< /Type /Font /Subtype /Type1 /BaseFont /") + kFontNames[i] +
                " /Encoding /WinAnsiEncoding >>\nendobj\n");
    }
}

std::string fontResources() {
    std::string r = "/Resources << /Font <<";
    for (int i = 0; i < kFonts; ++i)
        r += " /F" + std::to_string(i + 1) + " " + std::to_string(kFirstFont + i) + " 0 R";
    return r + " >> >>";
}

std::string withPath(const char* pattern, const std::string& path) {
    std::vector<char> buf(std::string_view(pattern).size() + path.size() + 1);
    std::snprintf(buf.data(), buf.size(), pattern, path.c_str());
    return buf.data();
}

}  // namespace

PageMetrics pdfPageMetrics(double fontSize, double width, double height) {
    return {width > 0 ? width : kA4Width, height > 0 ? height : kA4Height, kPointsPerTenthMm,
            kCourierAdvance * fontSize, kLineSpacing * fontSize};
}

PrintOutcome writePdf(const PrintPlan& plan, const PageFacts& facts, const std::string& path,
                      const PrintProgress& progress, std::string& message) {
    DurableReplace out;
    if (beginReplace(out, path) != ReplaceResult::Replaced) {
        message = withPath(printmsg::kCannotWrite, path);
        return PrintOutcome::Failed;
    }
    PdfFile pdf(out);
    writeHead(pdf);
    PageWriter writer(plan, plan.metrics.cellWidth / kCourierAdvance);
    char box[96];
    std::snprintf(box, sizeof box, "/MediaBox [0 0 %.2f %.2f] ", plan.metrics.width, plan.metrics.height);
    const std::string pageDict = std::string("<< /Type /Page /Parent 2 0 R ") + box + fontResources();
    std::string kids;
    const size_t total = plan.pages.size();
    for (size_t i = 0; i < total; ++i) {
        const std::string content = writer.content(layoutPage(plan, i, facts));
        const int object = kFirstPageObject + 2 * static_cast<int>(i);
        pdf.begin(object);
        pdf.put("<< /Length " + std::to_string(content.size()) + " >>\nstream\n");
        pdf.put(content);
        pdf.put("endstream\nendobj\n");
        pdf.begin(object + 1);
        pdf.put(pageDict + " /Contents " + std::to_string(object) + " 0 R >>\nendobj\n");
        kids += std::to_string(object + 1) + " 0 R ";
        if (progress && !progress(i + 1, total)) {
            abandonReplace(out);
            message = withPath(printmsg::kCancelled, path);
            return PrintOutcome::Cancelled;
        }
    }
    pdf.begin(kPageTree);
    pdf.put("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(total) + " >>\nendobj\n");
    pdf.finish(kCatalog);
    if (finishReplace(out) != ReplaceResult::Replaced) {
        message = withPath(printmsg::kCannotWrite, path);
        return PrintOutcome::Failed;
    }
    return PrintOutcome::Done;
}

}  // namespace zol

#include "config/settings.h"
#include "engine/document.h"
#include "engine/options.h"

namespace zol {

PageFacts pageFactsNow(const Document& doc) {
    PageFacts f;
    f.path = doc.fileName;
    f.when = localTimeNow();
    f.conventions = timeConventions();
    return f;
}

PrintOutcome printDocumentToPdf(const Document& doc, bool selectionOnly, const std::string& path,
                                const PrintProgress& progress, std::string& message) {
    PrintOptions o = printOptionsFromSettings(settings(), options());
    o.selectionOnly = selectionOnly;
    PrintPlan plan;
    if (!planPrint(doc, o, pdfPageMetrics(printFontSize(settings())), plan, message)) return PrintOutcome::Failed;
    return writePdf(plan, pageFactsNow(doc), path, progress, message);
}

}  // namespace zol
