#include "app/qt/command_palette.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

#include "app/qt/menus.h"
#include "config/keymap.h"
#include "engine/command_table.h"

namespace zol {
namespace {

constexpr int kPaletteWidth = 760;
constexpr int kPaletteHeight = 420;

bool startsWord(const QString& text, const QString& word) {
    for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(word, at + 1, Qt::CaseInsensitive))
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
    return false;
}

QString keysOf(uint16_t id) {
    QStringList names;
    for (const std::string& k : commandKeyNames(keyMap(), id)) names << QString::fromLatin1(k.c_str());
    return names.join(QStringLiteral(", "));
}

}  // namespace

std::vector<PaletteEntry> paletteEntries(std::span<const qtmsg::MenuRow> menuRows) {
    std::map<std::string, QString> labels;  // command name -> menu label
    for (const qtmsg::MenuRow& row : menuRows)
        if (row.item == qtmsg::MenuItem::Command) labels.emplace(row.name, plainLabel(row.label));
    std::vector<PaletteEntry> out;
    for (const CommandRecord& r : commandTable()) {
        PaletteEntry e;
        e.command = r.id;
        e.name = QString::fromLatin1(r.name);
        const auto label = labels.find(r.name);
        const QString menuLabel = label != labels.end() ? label->second : QString();
        e.label = menuLabel;
        e.title = r.description ? QString::fromLatin1(r.description) : !menuLabel.isEmpty() ? menuLabel : e.name;
        e.keys = keysOf(r.id);
        e.enabled = r.owner != CommandOwner::Inert;
        e.haystack = (e.title + QLatin1Char(' ') + e.name + QLatin1Char(' ') + menuLabel + QLatin1Char(' ') + e.keys).toLower();
        out.push_back(std::move(e));
    }
    for (const qtmsg::MenuRow& row : menuRows) {
        if (row.item != qtmsg::MenuItem::Action) continue;
        PaletteEntry e;
        e.action = row.name;
        e.title = e.label = plainLabel(row.label);
        e.haystack = e.title.toLower();
        out.push_back(std::move(e));
    }
    return out;
}

QStringList paletteWords(const QString& filter) {
    return filter.toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool paletteMatches(const PaletteEntry& e, const QStringList& words) {
    for (const QString& w : words)
        if (!e.haystack.contains(w)) return false;
    return true;
}

int paletteRank(const PaletteEntry& e, const QStringList& words) {
    if (words.isEmpty()) return 0;
    const QString whole = words.join(QLatin1Char(' '));
    if (e.label.compare(whole, Qt::CaseInsensitive) == 0 || e.name.compare(whole, Qt::CaseInsensitive) == 0) return 0;
    const QString& first = words.front();
    // What the menus show is what people type: "save" means Save before SaveCursorPos.
    if (e.label.startsWith(first, Qt::CaseInsensitive)) return 1;
    if (e.name.startsWith(first, Qt::CaseInsensitive)) return 2;
    return startsWord(e.title, first) || startsWord(e.label, first) ? 3 : 4;
}

// The entries the filter lets through, best first, as rows of three columns:
// description, name and keys.
class PaletteModel : public QAbstractTableModel {
public:
    PaletteModel(const std::vector<PaletteEntry>& entries, QColor dim, QObject* parent)
        : QAbstractTableModel(parent), entries_(entries), dim_(dim) {}

    void setShown(std::vector<size_t> shown) {
        beginResetModel();
        shown_ = std::move(shown);
        endResetModel();
    }
    const PaletteEntry* entryAt(int row) const {
        return row >= 0 && row < static_cast<int>(shown_.size()) ? &entries_[shown_[row]] : nullptr;
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(shown_.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 3; }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const PaletteEntry* e = entryAt(index.row());
        return e && e->enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const PaletteEntry* e = entryAt(index.row());
        if (!e) return {};
        if (role == Qt::ForegroundRole && index.column() == 1) return dim_;
        if (role == Qt::ToolTipRole && !e->enabled) return QString::fromLatin1(qtmsg::kNotAvailableTip);
        if (role != Qt::DisplayRole) return {};
        switch (index.column()) {
        case 0: return e->title;
        case 1: return e->name;
        default: return e->enabled ? e->keys : QString::fromLatin1(qtmsg::kNotAvailableTip);
        }
    }

private:
    const std::vector<PaletteEntry>& entries_;
    QColor dim_;
    std::vector<size_t> shown_;
};

TCommandPalette::TCommandPalette(QWidget* parent, std::vector<PaletteEntry> entries)
    : QDialog(parent), entries_(std::move(entries)), filter_(new QLineEdit(this)), list_(new QTreeView(this)) {
    setWindowTitle(QString::fromLatin1(qtmsg::kPaletteTitle));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setPlaceholderText(QString::fromLatin1(qtmsg::kPaletteFilter));
    filter_->installEventFilter(this);
    model_ = new PaletteModel(entries_, palette().color(QPalette::PlaceholderText), this);
    list_->setObjectName(QStringLiteral("commands"));
    list_->setModel(model_);
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setFocusPolicy(Qt::NoFocus);
    // Columns as wide as their longest text once, so that narrowing the list never
    // measures it again.
    const QFontMetrics fm(list_->font());
    int nameWidth = 0, keysWidth = fm.horizontalAdvance(QString::fromLatin1(qtmsg::kNotAvailableTip));
    for (const PaletteEntry& e : entries_) {
        nameWidth = std::max(nameWidth, fm.horizontalAdvance(e.name));
        keysWidth = std::max(keysWidth, fm.horizontalAdvance(e.keys));
    }
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::Fixed);
    list_->header()->setSectionResizeMode(2, QHeaderView::Fixed);
    list_->header()->resizeSection(1, nameWidth + fm.averageCharWidth() * 2);
    list_->header()->resizeSection(2, keysWidth + fm.averageCharWidth() * 2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(filter_);
    layout->addWidget(list_);
    connect(filter_, &QLineEdit::textChanged, this, &TCommandPalette::setFilter);
    connect(filter_, &QLineEdit::returnPressed, this, &TCommandPalette::take);
    connect(list_, &QTreeView::activated, this, &TCommandPalette::take);
    resize(kPaletteWidth, kPaletteHeight);
    setFilter(QString());
}

std::optional<PaletteEntry> TCommandPalette::run(QWidget* parent, std::vector<PaletteEntry> entries) {
    TCommandPalette palette(parent, std::move(entries));
    if (parent) {
        const QRect area = parent->geometry();
        palette.resize(std::min(kPaletteWidth, area.width() * 9 / 10), std::min(kPaletteHeight, area.height() * 3 / 4));
        palette.move(area.center().x() - palette.width() / 2, area.top() + area.height() / 8);
    }
    if (palette.exec() != QDialog::Accepted || !palette.selected()) return std::nullopt;
    return *palette.selected();
}

void TCommandPalette::setFilter(const QString& text) {
    const QStringList words = paletteWords(text);
    std::vector<std::pair<int, size_t>> ranked;
    for (size_t i = 0; i < entries_.size(); ++i)
        if (paletteMatches(entries_[i], words)) ranked.emplace_back(paletteRank(entries_[i], words), i);
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<size_t> shown;
    shown.reserve(ranked.size());
    int first = -1;
    for (const auto& [rank, i] : ranked) {
        if (first < 0 && entries_[i].enabled) first = static_cast<int>(shown.size());
        shown.push_back(i);
    }
    model_->setShown(std::move(shown));
    if (first >= 0) {
        list_->setCurrentIndex(model_->index(first, 0));
        list_->scrollTo(model_->index(first, 0));
    }
}

int TCommandPalette::shownCount() const { return model_->rowCount(); }

const PaletteEntry* TCommandPalette::selected() const {
    const QModelIndex at = list_->currentIndex();
    return at.isValid() ? model_->entryAt(at.row()) : nullptr;
}

void TCommandPalette::take() {
    if (const PaletteEntry* e = selected(); e && e->enabled) accept();
}

bool TCommandPalette::eventFilter(QObject* watched, QEvent* e) {
    if (watched == filter_ && e->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            // The list moves over the disabled entries by itself.
            QKeyEvent copy(QEvent::KeyPress, key, static_cast<QKeyEvent*>(e)->modifiers());
            QCoreApplication::sendEvent(list_, &copy);
            return true;
        }
    }
    return QDialog::eventFilter(watched, e);
}

}  // namespace zol
