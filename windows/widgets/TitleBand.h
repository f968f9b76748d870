#pragma once

#include <QWidget>

/// The coloured band over a list, with the list's name in white.
class CTitleBand : public QWidget {
    Q_OBJECT

public:
    explicit CTitleBand(const QString& title, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
