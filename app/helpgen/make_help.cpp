// Turns the user manual (docs/*.md) into the help window's pages at build time: one
// HTML page per document with an anchor before each section, "contents.txt" (level,
// title, target per line) and "index.txt" (term, target per line), where a target is
// "page.html#sN".
//
// Index terms are the headings, the bold words that open a paragraph or list item, and
// the one-word code spans (commands, settings, functions, options); a term keeps the
// first section that names it, headings before the rest.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextStream>
#include <cstdio>
#include <map>

namespace {

struct Section {
    int level = 0;
    QString title;
    QString markdown;
};

// Splits at headings outside code fences; text before the first heading is section 0.
QList<Section> sectionsOf(const QString& text) {
    QList<Section> out{Section{}};
    bool fence = false;
    static const QRegularExpression heading(QStringLiteral("^(#{1,4})\\s+(.*)$"));
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QStringLiteral("```"))) fence = !fence;
        const QRegularExpressionMatch m = heading.match(line);
        if (!fence && m.hasMatch()) out.append(Section{static_cast<int>(m.captured(1).size()), m.captured(2).trimmed(), {}});
        out.last().markdown += line + QLatin1Char('\n');
    }
    return out;
}

// Links between the manual's files and to its pictures, as they lie in the help folder.
QString helpLinks(QString markdown) {
    static const QRegularExpression md(QStringLiteral("\\]\\((?:docs/)?([A-Za-z0-9_-]+)\\.md(#[^)]*)?\\)"));
    markdown.replace(QStringLiteral("](docs/images/"), QStringLiteral("](images/"));
    return markdown.replace(md, QStringLiteral("](\\1.html)"));
}

QString bodyOf(const QString& markdown) {
    QTextDocument doc;
    doc.setMarkdown(helpLinks(markdown));
    const QString html = doc.toHtml();
    const qsizetype open = html.indexOf(QLatin1Char('>'), html.indexOf(QStringLiteral("<body")));
    const qsizetype close = html.lastIndexOf(QStringLiteral("</body>"));
    return open < 0 || close < 0 ? html : html.mid(open + 1, close - open - 1);
}

void addTerms(std::map<QString, QString>& index, const Section& s, const QString& target) {
    static const QRegularExpression bold(QStringLiteral("^\\s*(?:- )?\\*\\*([^*]{2,40}?)\\.?\\*\\*"),
                                         QRegularExpression::MultilineOption);
    static const QRegularExpression code(QStringLiteral("`([A-Za-z_\\-][A-Za-z0-9_.\\-]{2,40})`"));
    auto add = [&](QString term) {
        term = term.trimmed();
        if (!term.isEmpty()) index.try_emplace(term, target);
    };
    for (auto it = bold.globalMatch(s.markdown); it.hasNext();) add(it.next().captured(1));
    for (auto it = code.globalMatch(s.markdown); it.hasNext();) add(it.next().captured(1));
}

bool write(const QString& path, const QString& text) {
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    f.write(text.toUtf8());
    return f.error() == QFile::NoError;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_help OUT_DIR FILE.md...\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    QString contents;
    std::map<QString, QString> headings, terms;
    for (int i = 2; i < argc; ++i) {
        QFile in(QString::fromLocal8Bit(argv[i]));
        if (!in.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "make_help: cannot read %s\n", argv[i]);
            return 1;
        }
        const QString page = QFileInfo(in.fileName()).completeBaseName() + QStringLiteral(".html");
        const QList<Section> sections = sectionsOf(QString::fromUtf8(in.readAll()));
        QString html = QStringLiteral("<html><head><meta charset=\"utf-8\"><title>%1</title></head><body>\n")
                           .arg(sections.size() > 1 ? sections[1].title.toHtmlEscaped() : page);
        for (qsizetype n = 0; n < sections.size(); ++n) {
            const Section& s = sections[n];
            const QString target = page + QStringLiteral("#s%1").arg(n);
            html += QStringLiteral("<a name=\"s%1\"></a>\n").arg(n) + bodyOf(s.markdown);
            if (s.level == 0) continue;
            contents += QStringLiteral("%1\t%2\t%3\n").arg(s.level).arg(s.title, target);
            headings.try_emplace(s.title, target);
            addTerms(terms, s, target);
        }
        if (!write(out + QLatin1Char('/') + page, html + QStringLiteral("</body></html>\n"))) return 1;
    }
    for (const auto& [term, target] : terms) headings.try_emplace(term, target);
    QString index;
    for (const auto& [term, target] : headings) index += term + QLatin1Char('\t') + target + QLatin1Char('\n');
    return write(out + QStringLiteral("/contents.txt"), contents) && write(out + QStringLiteral("/index.txt"), index)
               ? 0
               : 1;
}
