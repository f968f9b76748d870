#pragma once

#include <QPushButton>

/// An icon of the program's resources by its name ("add").
QIcon NamedIcon(const char* name);

/// A small owner-drawn push button with an icon, and a text after it if it has one. Latched, it is checked and
/// stays drawn pressed.
class CIconButton : public QPushButton {
    Q_OBJECT

public:
    explicit CIconButton(const QIcon& icon, QWidget* parent = nullptr);

    void SetLatched(bool latched);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    /// A click does not latch; what the command has done says whether it is.
    void nextCheckState() override {}
};
