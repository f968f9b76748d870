#pragma once

#include <QWidget>

/// The coloured band over a list, with the list's name in white.
class CTitleBand : public QWidget {
    Q_OBJECT

public:
    explicit CTitleBand(const QString& title, QWidget* parent = nullptr);

    /// Marked while the keys go to its list.
    bool IsMarked() const { return m_marked; }
    void SetMarked(bool marked);
    /// Stands at the right end of the band, as wide as it wants to be.
    void SetButton(QWidget* button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_button = nullptr;
    bool m_marked = false;
};
