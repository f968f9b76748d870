#pragma once

#include <QWidget>

class QRubberBand;

/// The vertical bar between the master side and the detail side. A drag moves a tracking rectangle over the parent; the
/// bar itself moves when the button is let go.
class CSplitterBar : public QWidget {
    Q_OBJECT

public:
    explicit CSplitterBar(QWidget* parent);

signals:
    /// WM_SPLITTER_MOVED: the bar stands at its new left edge, the parent lays itself out again.
    void moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Left and Right move the bar.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The pointer never leaves the view while it drags.
    int PointerX(const QMouseEvent& event) const;

    QRubberBand* m_track = nullptr;
    int m_pressX = 0;
};
