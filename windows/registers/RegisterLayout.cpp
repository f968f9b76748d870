#include "windows/registers/RegisterLayout.h"

#include "windows/widgets/IconButton.h"
#include "windows/widgets/SplitterBar.h"
#include "windows/widgets/TitleBand.h"
#include "windows/widgets/lists/RecordList.h"

namespace {
constexpr int Margin = 4;
constexpr int Gap = 2;
constexpr int LeastSide = 120;
constexpr int CollapsedEdge = 2;
constexpr int SplitterWidth = 5;
} // namespace

void ListGroup::SetVisible(bool visible) const {
    for (CIconButton* button : buttons)
        button->setVisible(visible);
    for (QWidget* widget :
         {static_cast<QWidget*>(title), static_cast<QWidget*>(list), static_cast<QWidget*>(titleButton)})
        if (widget != nullptr)
            widget->setVisible(visible);
}

void RegisterLayout::Arrange(QSize view) const {
    const int bottom = view.height() - Margin;
    if (splitter == nullptr) {
        ArrangeMaster(view.width() - Margin, bottom);
        return;
    }
    const bool detailsShown = wantedLeft < view.width() - LeastSide;
    const bool masterShown = !detailsShown || wantedLeft >= LeastSide;
    PlaceSplitter(view);
    master.SetVisible(masterShown);
    detail.SetVisible(detailsShown);
    subdetail.SetVisible(detailsShown);
    if (masterShown)
        ArrangeMaster(splitter->x() - Gap, bottom);
    if (detailsShown)
        ArrangeDetails(splitter->geometry().right() + 1 + Gap, view.width() - Margin, bottom);
}

void RegisterLayout::PlaceSplitter(QSize view) const {
    int left = wantedLeft;
    if (left >= view.width() - LeastSide)
        left = view.width() - CollapsedEdge - SplitterWidth;
    else if (left < LeastSide)
        left = CollapsedEdge;
    splitter->setGeometry(left, Margin, SplitterWidth, view.height() - 2 * Margin);
}

int RegisterLayout::ArrangeRow(const ListGroup& group, int left, int top, int right) const {
    const QSize button = master.buttons.front()->sizeHint();
    for (CIconButton* each : group.buttons) {
        each->setGeometry(left, top, button.width(), button.height());
        left += button.width();
    }
    if (group.titleButton != nullptr) {
        right -= button.width();
        group.titleButton->setGeometry(right, top, button.width(), button.height());
    }
    group.title->setGeometry(left, top, qMax(0, right - left), button.height());
    return top + button.height();
}

void RegisterLayout::ArrangeMaster(int right, int bottom) const {
    const int top = ArrangeRow(master, Margin, Margin, right) + 1;
    master.list->setGeometry(Margin, top, right - Margin, bottom - top);
}

void RegisterLayout::ArrangeDetails(int left, int right, int bottom) const {
    const int top = ArrangeRow(detail, left, Margin, right) + 1;
    if (subdetail.list == nullptr) {
        detail.list->setGeometry(left, top, right - left, bottom - top);
        return;
    }
    detail.list->setGeometry(left, top, right - left, detailHeight);
    const int below = ArrangeRow(subdetail, left, top + detailHeight + Gap, right) + 1;
    subdetail.list->setGeometry(left, below, right - left, qMax(0, bottom - below));
}
