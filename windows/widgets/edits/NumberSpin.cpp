#include "windows/widgets/edits/NumberSpin.h"

#include <algorithm>

namespace {
constexpr int MostDigits = 9;
}

CNumberSpin::CNumberSpin(QWidget* parent) : QSpinBox(parent) {
    setRange(Empty, 999999999);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CNumberSpin::SetLimits(int low, int high) {
    m_low = low;
    m_high = high;
    updateGeometry();
}

QSize CNumberSpin::sizeHint() const {
    QSize size = QSpinBox::sizeHint();
    const auto widthOf = [this](int number) { return fontMetrics().horizontalAdvance(QString::number(number)); };
    size.rwidth() += widthOf(m_high) - widthOf(maximum());
    return size;
}

void CNumberSpin::stepBy(int steps) {
    setValue(std::clamp(value() + steps, m_low, m_high));
    selectAll();
}

QAbstractSpinBox::StepEnabled CNumberSpin::stepEnabled() const {
    StepEnabled enabled = StepNone;
    if (value() < m_high)
        enabled |= StepUpEnabled;
    if (value() > m_low)
        enabled |= StepDownEnabled;
    return enabled;
}

QValidator::State CNumberSpin::validate(QString& input, int&) const {
    const bool digits = std::all_of(input.begin(), input.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits && input.size() <= MostDigits ? QValidator::Acceptable : QValidator::Invalid;
}

int CNumberSpin::valueFromText(const QString& text) const {
    return text.isEmpty() ? Empty : text.toInt();
}

QString CNumberSpin::textFromValue(int value) const {
    return value == Empty ? QString() : QString::number(value);
}
