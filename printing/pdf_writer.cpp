#include "printing/pdf_writer.h"

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

class PageWriter {
public:
    PageWriter(const PrintPlan& plan, double size) : plan_(plan), size_(size) {}

    std::string content(const PrintPage& page) {
        s_.clear();
        font_ = -1;
        colour_ = {1, 2, 3};
        const PageFrame& f = plan_.frame;
        const PrintOptions& o = plan_.options;
        s_ += "BT\n";
        if (f.header) pageLine(page.header, f.headerY);
        for (size_t i = 0; i < page.rows.size(); ++i) {
            const double y = f.textY + static_cast<double>(i) * plan_.spec.lineHeight;
            for (const PrintRun& r : page.rows[i].runs) show(r.text, r.column, y, fontOf(r.kind, o), r.colour);
        }
        if (f.footer) pageLine(page.footer, f.footerY);
        s_ += "ET\n";
        return s_;
    }

private:
    void pageLine(const PageLine& line, double y) {
        const int cols = plan_.frame.columns;
        const int centre = (cols - static_cast<int>(line[1].size())) / 2;
        const int right = cols - static_cast<int>(line[2].size());
        const int at[3] = {0, centre, right};
        for (int i = 0; i < 3; ++i)
            if (!line[i].empty()) show(line[i], std::max(0, at[i]), y, 0, {0, 0, 0});
    }

    void show(std::string_view text, int column, double top, int font, Rgb colour) {
        char buf[96];
        if (font != font_) {
            std::snprintf(buf, sizeof buf, "/F%d %.2f Tf\n", font + 1, size_);
            s_ += buf;
            font_ = font;
        }
        if (!(colour == colour_)) {
            std::snprintf(buf, sizeof buf, "%.3f %.3f %.3f rg\n", colour.r / 255.0, colour.g / 255.0,
                          colour.b / 255.0);
            s_ += buf;
            colour_ = colour;
        }
        const double x = plan_.frame.left + column * plan_.spec.cellWidth;
        const double y = plan_.spec.height - top - kBaseline * size_;
        std::snprintf(buf, sizeof buf, "1 0 0 1 %.2f %.2f Tm ", x, y);
        s_ += buf;
        pdfString(s_, text);
        s_ += " Tj\n";
    }

    const PrintPlan& plan_;
    double size_;
    std::string s_;
    int font_ = -1;
    Rgb colour_{};
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

PageSpec pdfPageSpec(double fontSize) {
    return {kA4Width, kA4Height, kPointsPerTenthMm, kCourierAdvance * fontSize, kLineSpacing * fontSize};
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
    PageWriter writer(plan, plan.spec.cellWidth / kCourierAdvance);
    char box[96];
    std::snprintf(box, sizeof box, "/MediaBox [0 0 %.2f %.2f] ", plan.spec.width, plan.spec.height);
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
    if (!planPrint(doc, o, pdfPageSpec(printFontSize(settings())), plan, message)) return PrintOutcome::Failed;
    return writePdf(plan, pageFactsNow(doc), path, progress, message);
}

}  // namespace zol
