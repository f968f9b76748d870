#pragma once

#include <QSpinBox>

/// A whole number whose arrows stay within its limits, while any digits, or none, may be typed: whoever reads the field
/// says what is wrong with them, and the text is not changed behind the user's back.
class CNumberSpin : public QSpinBox {
    Q_OBJECT

public:
    explicit CNumberSpin(QWidget* parent = nullptr);

    void SetLimits(int low, int high);
    int Low() const { return m_low; }
    int High() const { return m_high; }
    /// False while the field is empty.
    bool HoldsNumber() const { return value() != Empty; }
    void stepBy(int steps) override;
    /// As wide as its largest number needs.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    QValidator::State validate(QString& input, int& pos) const override;
    int valueFromText(const QString& text) const override;
    QString textFromValue(int value) const override;
    StepEnabled stepEnabled() const override;

private:
    static constexpr int Empty = -1;
    int m_low = 0;
    int m_high = 0;
};
