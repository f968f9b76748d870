#pragma once

#include <QList>
#include <QSize>

class CIconButton;
class CSplitterBar;
class CTitleBand;
class QWidget;
class RecordList;

/// A list with the row of buttons and the title band above it; what a register does not have is null or empty.
struct ListGroup {
    QList<CIconButton*> buttons;
    CTitleBand* title = nullptr;
    RecordList* list = nullptr;
    /// At the right end of the title's row.
    CIconButton* titleButton = nullptr;

    void SetVisible(bool visible) const;
};

/// Where everything of a register stands, for a size of the view and the splitter's wanted left edge.
class RegisterLayout {
public:
    ListGroup master, detail, subdetail;
    CSplitterBar* splitter = nullptr;
    /// Kept by a second list that has a third one below it.
    int detailHeight = 150;
    /// The splitter's left edge as it was wanted last. Where the view has no room for it the splitter stands at an edge
    /// until it has.
    int wantedLeft = 0;

    void Arrange(QSize view) const;

private:
    /// Moves the splitter to an edge where its wanted place would leave one side less than 120 pixels.
    void PlaceSplitter(QSize view) const;
    /// The buttons from `left`, then the title band up to `right`. The bottom edge of the row.
    int ArrangeRow(const ListGroup& group, int left, int top, int right) const;
    void ArrangeMaster(int right, int bottom) const;
    void ArrangeDetails(int left, int right, int bottom) const;
};
