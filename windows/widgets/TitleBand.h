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

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_marked = false;
};
