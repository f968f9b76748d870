#include "windows/frame/help/HelpContents.h"

#include "windows/frame/help/HelpSearch.h"

#include <QFile>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Role { Address = Qt::UserRole, FoldedText };

/// Empty when there is no such page.
void ReadPage(const QUrl& page, QTextDocument& document) {
    QFile file(QLatin1Char(':') + page.path());
    if (file.open(QIODevice::ReadOnly))
        document.setHtml(QString::fromUtf8(file.readAll()));
}

/// The first link of a paragraph.
struct Link {
    QString text;
    QString address;
};

Link LinkOf(const QTextBlock& block) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece)
        if (piece.fragment().charFormat().isAnchor())
            return {piece.fragment().text(), piece.fragment().charFormat().anchorHref()};
    return {};
}

} // namespace

CHelpContents::CHelpContents(const QUrl& firstPage, QWidget* parent)
    : QWidget(parent), m_search(new QLineEdit), m_tree(new QTreeWidget) {
    m_search->setObjectName(QStringLiteral("helpSearch"));
    m_search->setPlaceholderText(QStringLiteral("Hledat v nápovědě"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_tree->setObjectName(QStringLiteral("helpContents"));
    m_tree->setAccessibleName(QStringLiteral("Obsah nápovědy"));
    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_tree->setIndentation(12);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(8, 8, 4, 8);
    all->addWidget(m_search);
    all->addWidget(m_tree);
    Fill(firstPage);
    connect(m_search, &QLineEdit::textChanged, this, &CHelpContents::Seek);
    connect(m_search, &QLineEdit::returnPressed, this, &CHelpContents::OpenFirstFound);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &CHelpContents::OpenItem);
}

/// A heading of the first page begins a group, a paragraph with a link is a page of it.
void CHelpContents::Fill(const QUrl& firstPage) {
    QTextDocument document;
    ReadPage(firstPage, document);
    const auto add = [&](QTreeWidgetItem* group, const QString& title, const QUrl& page) {
        auto* const item = group == nullptr ? new QTreeWidgetItem(m_tree) : new QTreeWidgetItem(group);
        item->setText(0, title);
        item->setData(0, Address, page);
        QTextDocument text;
        ReadPage(page, text);
        item->setData(0, FoldedText, FoldedForSearch(text.toPlainText()));
        return item;
    };
    add(nullptr, QStringLiteral("Obsah"), firstPage);
    QTreeWidgetItem* group = nullptr;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const Link link = LinkOf(block);
        if (block.blockFormat().headingLevel() == 2) {
            group = new QTreeWidgetItem(m_tree);
            group->setText(0, block.text());
            group->setFlags(Qt::ItemIsEnabled);
            QFont bold = font();
            bold.setBold(true);
            group->setFont(0, bold);
        } else if (group != nullptr && !link.address.isEmpty()) {
            add(group, link.text, firstPage.resolved(QUrl(link.address)));
        }
    }
    m_nothing = new QTreeWidgetItem(m_tree, {QStringLiteral("Nic nenalezeno")});
    m_nothing->setFlags(Qt::NoItemFlags);
    // Not to be chosen, but to be read.
    m_nothing->setForeground(0, palette().text());
    m_nothing->setHidden(true);
    m_tree->expandAll();
}

void CHelpContents::ShowCurrent(const QUrl& page) {
    const QSignalBlocker quiet(m_tree);
    for (QTreeWidgetItemIterator item(m_tree); *item != nullptr; ++item)
        if ((*item)->data(0, Address).toUrl().path() == page.path())
            m_tree->setCurrentItem(*item);
}

QString CHelpContents::SoughtText() const {
    return m_search->text();
}

void CHelpContents::FocusSearch() {
    m_search->setFocus();
    m_search->selectAll();
}

void CHelpContents::ClearSearch() {
    m_search->clear();
}

void CHelpContents::Seek(const QString& text) {
    const CHelpSearch search(text);
    bool found = false;
    for (int top = 0; top < m_tree->topLevelItemCount(); ++top) {
        QTreeWidgetItem* const group = m_tree->topLevelItem(top);
        if (group == m_nothing)
            continue;
        const auto misses = [&](QTreeWidgetItem* item) {
            item->setHidden(!search.IsIn(item->data(0, FoldedText).toString()));
            found = found || !item->isHidden();
            return item->isHidden();
        };
        int shown = 0;
        for (int row = 0; row < group->childCount(); ++row)
            shown += misses(group->child(row)) ? 0 : 1;
        if (group->childCount() > 0)
            group->setHidden(shown == 0);
        else
            misses(group);
    }
    m_nothing->setHidden(found);
    emit sought(text);
}

void CHelpContents::OpenItem(const QTreeWidgetItem* item) {
    const QUrl page = item == nullptr ? QUrl() : item->data(0, Address).toUrl();
    if (!page.isEmpty())
        emit pageWanted(page);
}

void CHelpContents::OpenFirstFound() {
    for (QTreeWidgetItemIterator item(m_tree, QTreeWidgetItemIterator::NotHidden); *item != nullptr; ++item)
        if (!(*item)->data(0, Address).toUrl().isEmpty()) {
            m_tree->setCurrentItem(*item);
            return;
        }
}
