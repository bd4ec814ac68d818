#include "app/qt/command_palette.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>

#include "app/qt/menus.h"
#include "config/keymap.h"
#include "engine/command_table.h"

namespace zol {
namespace {

constexpr int kPaletteWidth = 760;
constexpr int kPaletteHeight = 420;

// An entry's row; the list sorts its rows by rank, then by table order.
class PaletteItem : public QTreeWidgetItem {
public:
    PaletteItem(QTreeWidget* list, const PaletteEntry& e, size_t index)
        : QTreeWidgetItem(list, QStringList{e.title, e.name, e.keys}), index(index) {}
    bool operator<(const QTreeWidgetItem& other) const override {
        const auto& o = static_cast<const PaletteItem&>(other);
        return rank != o.rank ? rank < o.rank : index < o.index;
    }
    size_t index;
    int rank = 0;
};

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
    const QString& first = words.front();
    if (e.name.startsWith(first, Qt::CaseInsensitive) || e.label.startsWith(first, Qt::CaseInsensitive)) return 0;
    return startsWord(e.title, first) || startsWord(e.label, first) ? 1 : 2;
}

TCommandPalette::TCommandPalette(QWidget* parent, std::vector<PaletteEntry> entries)
    : QDialog(parent), entries_(std::move(entries)), filter_(new QLineEdit(this)), list_(new QTreeWidget(this)) {
    setWindowTitle(QString::fromLatin1(qtmsg::kPaletteTitle));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setPlaceholderText(QString::fromLatin1(qtmsg::kPaletteFilter));
    filter_->installEventFilter(this);
    list_->setObjectName(QStringLiteral("commands"));
    list_->setColumnCount(3);
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    const QColor dim = palette().color(QPalette::PlaceholderText);
    for (size_t i = 0; i < entries_.size(); ++i) {
        const PaletteEntry& e = entries_[i];
        auto* item = new PaletteItem(list_, e, i);
        item->setForeground(1, dim);
        if (!e.enabled) {
            item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
            item->setToolTip(0, QString::fromLatin1(qtmsg::kNotAvailableTip));
            item->setText(2, QString::fromLatin1(qtmsg::kNotAvailableTip));
        }
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(filter_);
    layout->addWidget(list_);
    connect(filter_, &QLineEdit::textChanged, this, &TCommandPalette::setFilter);
    connect(filter_, &QLineEdit::returnPressed, this, &TCommandPalette::take);
    connect(list_, &QTreeWidget::itemActivated, this, &TCommandPalette::take);
    resize(kPaletteWidth, kPaletteHeight);
    setFilter(QString());
}

std::optional<PaletteEntry> TCommandPalette::run(QWidget* parent, std::vector<PaletteEntry> entries) {
    TCommandPalette palette(parent, std::move(entries));
    if (parent) {
        const QRect area = parent->geometry();
        palette.move(area.center().x() - palette.width() / 2, area.top() + area.height() / 8);
    }
    if (palette.exec() != QDialog::Accepted || !palette.selected()) return std::nullopt;
    return *palette.selected();
}

void TCommandPalette::setFilter(const QString& text) {
    const QStringList words = paletteWords(text);
    list_->setUpdatesEnabled(false);
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        auto* item = static_cast<PaletteItem*>(list_->topLevelItem(i));
        const PaletteEntry& e = entries_[item->index];
        const bool shown = paletteMatches(e, words);
        if (item->isHidden() == shown) item->setHidden(!shown);
        item->rank = shown ? paletteRank(e, words) : 0;
    }
    list_->sortItems(0, Qt::AscendingOrder);
    QTreeWidgetItem* first = nullptr;
    for (int i = 0; i < list_->topLevelItemCount() && !first; ++i) {
        QTreeWidgetItem* item = list_->topLevelItem(i);
        if (!item->isHidden() && entries_[static_cast<PaletteItem*>(item)->index].enabled) first = item;
    }
    list_->setUpdatesEnabled(true);
    list_->setCurrentItem(first);
    if (first) list_->scrollToItem(first);
}

int TCommandPalette::shownCount() const {
    int n = 0;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) n += list_->topLevelItem(i)->isHidden() ? 0 : 1;
    return n;
}

const PaletteEntry* TCommandPalette::selected() const {
    const QTreeWidgetItem* item = list_->currentItem();
    if (!item || item->isHidden()) return nullptr;
    return &entries_[static_cast<const PaletteItem*>(item)->index];
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
