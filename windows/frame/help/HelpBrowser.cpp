#include "windows/frame/help/HelpBrowser.h"

#include "windows/frame/help/HelpSearch.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace {
constexpr int NarrowestPicture = 100;
/// As the lines of the pages' tables: it parts a light picture from a light page and does not glare on a dark one.
constexpr QRgb FrameColor = 0xff8c8c8c;
} // namespace

CHelpBrowser::CHelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    document()->setDocumentMargin(14);
}

void CHelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    setExtraSelections({});
    QTextBrowser::doSetSource(url, type);
    FitPictures();
    // The anchor was looked up before the pictures had their size.
    if (url.hasFragment())
        scrollToAnchor(url.fragment());
}

void CHelpBrowser::FitPictures() {
    const int room = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (piece.fragment().charFormat().isImageFormat()) {
                FitPicture(piece.fragment(), std::max(room, NarrowestPicture));
                break; // the fragments may have changed; a picture stands in a paragraph of its own
            }
}

void CHelpBrowser::FitPicture(const QTextFragment& fragment, int room) {
    QTextImageFormat format = fragment.charFormat().toImageFormat();
    const QUrl address = source().resolved(QUrl(format.name()));
    QImage picture(QLatin1Char(':') + address.path());
    const int width = std::min(picture.width(), room);
    if (picture.isNull() || format.width() == width)
        return;
    if (width < picture.width())
        picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    // A picture of few colours cannot be painted on.
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter frame(&picture);
    frame.setPen(QColor(FrameColor));
    frame.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    frame.end();
    document()->addResource(QTextDocument::ImageResource, address, picture);
    format.setWidth(width);
    QTextCursor cursor(document());
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    cursor.setCharFormat(format);
}

void CHelpBrowser::Mark(const QString& text) {
    QList<ExtraSelection> places;
    int first = document()->characterCount();
    for (const CHelpSearch::Place found : CHelpSearch(text).PlacesIn(FoldedForSearch(document()->toRawText()))) {
        ExtraSelection place;
        place.cursor = QTextCursor(document());
        place.cursor.setPosition(static_cast<int>(found.at));
        place.cursor.setPosition(static_cast<int>(found.at + found.size), QTextCursor::KeepAnchor);
        first = std::min(first, place.cursor.anchor());
        place.format.setBackground(palette().highlight());
        place.format.setForeground(palette().highlightedText());
        places.append(place);
    }
    setExtraSelections(places);
    if (places.isEmpty())
        return;
    QTextCursor cursor(document());
    cursor.setPosition(first);
    setTextCursor(cursor);
}

void CHelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    FitPictures();
}

/// The style sheet names the colours of the palette, which are looked up when a page is read.
void CHelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !source().isEmpty())
        reload();
}
