#pragma once

#include <QTextBrowser>

class QTextFragment;

/// A page of the guide. Its pictures shrink to a window that is narrower than they are.
class CHelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit CHelpBrowser(QWidget* parent);
    /// Marks every place that the search finds and goes to the first one.
    void Mark(const QString& text);

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitPictures();
    void FitPicture(const QTextFragment& fragment, int room);
};
