#pragma once

#include <QLineEdit>

/// An edit that takes any text and reads it as a whole: when it is left, and when its window is to be closed with what
/// it holds. A text that cannot be read stays as it was typed; it is marked when it is left, and traps nobody.
class TypedEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit TypedEdit(QWidget* parent = nullptr);

    /// The sentence that says why the text cannot be taken; empty when it can.
    virtual QString Complaint() const = 0;
    /// Takes the focus with the whole text selected.
    void FocusAll();

protected:
    /// A text that can be read as the edit itself would write it.
    virtual QString TidyText() const = 0;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Mark(const QString& complaint);

    bool m_clickSelects = false;
};

/// Reads every edit of the window that can be typed into, in the order of Tab. The first that cannot be read is refused
/// with its complaint and keeps the focus: false.
bool CheckTyped(const QWidget& window);
