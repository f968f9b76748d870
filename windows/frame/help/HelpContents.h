#pragma once

#include <QUrl>
#include <QWidget>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

/// The guide's table of contents, as its first page lists it, and the search through all pages.
class CHelpContents : public QWidget {
    Q_OBJECT

public:
    CHelpContents(const QUrl& firstPage, QWidget* parent);
    /// Marks the page in the table.
    void ShowCurrent(const QUrl& page);
    QString SoughtText() const;
    void FocusSearch();
    void ClearSearch();

signals:
    void pageWanted(const QUrl& page);
    /// The text in the search field has changed.
    void sought(const QString& text);

private:
    void Fill(const QUrl& firstPage);
    void Seek(const QString& text);
    void OpenItem(const QTreeWidgetItem* item);
    void OpenFirstFound();

    QLineEdit* m_search;
    QTreeWidget* m_tree;
    QTreeWidgetItem* m_nothing = nullptr;
};
